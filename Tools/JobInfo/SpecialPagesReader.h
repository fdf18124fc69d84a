// SPDX-License-Identifier: Apache-2.0
//
// Reads the XML document in front of a job that describes its special pages, piece by piece.
#pragma once

#include <string>
#include <string_view>

#include "Tools/JobInfo/DecodedJob.h"

struct XML_ParserStruct;

class SpecialPagesReader {
  public:
    // Adds what it reads to `pages`.
    explicit SpecialPagesReader(SpecialPages &pages);
    ~SpecialPagesReader();
    SpecialPagesReader(const SpecialPagesReader &) = delete;
    SpecialPagesReader &operator=(const SpecialPagesReader &) = delete;

    void Add(std::string_view bytes);

    // Says that the document is over. Returns what is wrong with its XML, empty if nothing.
    std::string End();

  private:
    static void OnStart(void *reader, const char *name, const char **attributes);
    static void OnEnd(void *reader, const char *name);
    static void OnText(void *reader, const char *text, int length);
    void TakeMeasure(std::string_view element, const std::string &text);
    void Read(const char *bytes, std::size_t size, bool isLast);

    SpecialPages &pages_;
    XML_ParserStruct *parser_;
    std::string error_;
    std::string list_;           // the list of elements that the reader is in: "insert-sheet"
    int depth_ = 0;              // values within values that the reader is in
    std::string text_;           // of the element that the reader is in
    std::string words_;          // what the special page says so far
    std::string lower_, upper_;  // bounds of the range that was read last
    std::string width_;          // of the sheet
};
