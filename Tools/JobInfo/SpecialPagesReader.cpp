// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/SpecialPagesReader.h"

#include <expat.h>

#include <cstring>

#include "Tools/JobInfo/Text.h"

namespace {

constexpr std::size_t kMostPages = 1000;  // that are kept
constexpr std::size_t kLongestText = 200;

constexpr std::string_view kValue = "value";  // an element of a list, or a range in one

// What holds a special page each: the element itself, or each value of a list.
struct PageElement {
    std::string_view name;
    const char *what;
};
constexpr PageElement pageElements[] = {
    {"cover-front", "front cover"},
    {"cover-back", "back cover"},
    {"insert-sheet", "inserted sheets"},
    {"page-overrides", "page exception"},
};

// How the text of an element reads; "%" stands for it.
struct Phrase {
    std::string_view element;
    const char *words;
};
constexpr Phrase phrases[] = {
    {"cover-type", "printed: %"}, {"insert-after-page-number", "after page %"},
    {"insert-count", "count %"},  {"sides", "sides %"},
    {"media-type", "media %"},    {"media-color", "colour %"},
};

const PageElement *FindPageElement(std::string_view name) {
    for (const PageElement &element : pageElements) {
        if (element.name == name) return &element;
    }
    return nullptr;
}

void Append(std::string &words, const std::string &more) {
    words += (words.empty() ? "" : ", ") + more;
}

}  // namespace

SpecialPagesReader::SpecialPagesReader(SpecialPages &pages)
    : pages_(pages), parser_(XML_ParserCreate(nullptr)) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser_, OnText);
}

SpecialPagesReader::~SpecialPagesReader() {
    XML_ParserFree(parser_);
}

void SpecialPagesReader::Add(std::string_view bytes) {
    pages_.size += bytes.size();
    Read(bytes.data(), bytes.size(), false);
}

std::string SpecialPagesReader::End() {
    Read("", 0, true);
    return error_;
}

void SpecialPagesReader::Read(const char *bytes, std::size_t size, bool isLast) {
    if (!error_.empty()) return;
    if (XML_Parse(parser_, bytes, static_cast<int>(size), isLast) != XML_STATUS_ERROR) return;
    error_ = "line " + std::to_string(XML_GetCurrentLineNumber(parser_)) + ": " +
             XML_ErrorString(XML_GetErrorCode(parser_));
}

void SpecialPagesReader::OnStart(void *reader, const char *name, const char **) {
    auto &self = *static_cast<SpecialPagesReader *>(reader);
    self.text_.clear();
    if (kValue == name) self.depth_++;
    if (!FindPageElement(name)) return;
    self.list_ = name;
    self.depth_ = 0;
    self.words_.clear();
}

void SpecialPagesReader::OnText(void *reader, const char *text, int length) {
    auto &self = *static_cast<SpecialPagesReader *>(reader);
    if (self.text_.size() < kLongestText) self.text_.append(text, static_cast<std::size_t>(length));
}

// What takes more than one element to say: ranges and sizes.
void SpecialPagesReader::TakeMeasure(std::string_view element, const std::string &text) {
    if (element == "lower-bound") lower_ = text;
    if (element == "upper-bound") upper_ = text;
    if (element == "pages") Append(words_, "pages " + lower_ + " to " + upper_);
    if (element == "input-documents" && (lower_ != "1" || upper_ != "1")) {
        Append(words_, "documents " + lower_ + " to " + upper_);
    }
    if (element == "x-dimension") width_ = text;
    if (element == "y-dimension") Append(words_, width_ + " x " + text);
}

void SpecialPagesReader::OnEnd(void *reader, const char *name) {
    auto &self = *static_cast<SpecialPagesReader *>(reader);
    const std::string_view element = name;
    const std::string text = self.text_.substr(0, kLongestText);
    self.text_.clear();
    for (const Phrase &phrase : phrases) {
        if (phrase.element != element) continue;
        const char *slot = std::strchr(phrase.words, '%');
        Append(self.words_, std::string(phrase.words, slot) + text);
    }
    self.TakeMeasure(element, text);

    const PageElement *page = FindPageElement(self.list_);
    const bool isCover = page && page->name.starts_with("cover");
    if (element == kValue) self.depth_--;
    const bool ends = isCover ? element == self.list_ : element == kValue && self.depth_ == 0;
    if (!page || !ends) return;
    if (self.pages_.pages.size() < kMostPages)
        self.pages_.pages.push_back({page->what, self.words_});
    self.words_.clear();
}
