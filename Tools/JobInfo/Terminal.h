// SPDX-License-Identifier: Apache-2.0
//
// Where text for people goes, and how it is laid out there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct Terminal {
    std::size_t width = 0;  // cells of a line; 0 if there is no limit
    bool hasColour = false;
    bool isUTF8 = true;
};

// Standard output. Lines are as wide as COLUMNS says, else as the terminal is, else without limit.
// Colour is for terminals that have it, unless NO_COLOR is set.
Terminal StandardOutput();

enum class Style { kPlain, kHeading, kFaint, kBad, kGood };

// A row of two columns.
struct Row {
    std::string left;
    std::string right;
    Style style = Style::kPlain;  // of the left column
};

// Text laid out for a terminal. All that comes in may be any bytes; what comes out is UTF-8 or
// ASCII without control characters but the terminal's own for colour.
class Printout {
  public:
    explicit Printout(const Terminal &terminal) : terminal_(terminal) {}

    // A line that stands out, and a remark after it.
    void Heading(std::string_view title, std::string_view remark = {});

    // Rows in aligned columns, headings (Style::kHeading) between them. What is too wide is folded.
    void Rows(const std::vector<Row> &rows);

    // A paragraph, folded, `indent` cells from the left.
    void Paragraph(std::string_view text, std::size_t indent = 0, Style style = Style::kPlain);

    void BlankLine() { text_ += '\n'; }

    const std::string &Text() const { return text_; }

  private:
    std::string Show(std::string_view bytes) const;
    void Put(const std::string &text, Style style);
    std::size_t LeftWidth(const std::vector<Row> &rows) const;
    void PutFolded(const std::string &text, std::size_t indent, Style style);

    Terminal terminal_;
    std::string text_;
};
