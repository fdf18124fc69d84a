// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/WatermarkOptions.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/FontMetrics.h"
#include "FrontEnd/Sheet.h"
#include "FrontEnd/WatermarkText.h"

namespace {

constexpr int kLargestSize = 2000;  // points; no sheet takes more
constexpr int kFullTurn = 360;      // degrees

// Bytes of a text in the ticket, without its NUL, and what the code that outlines one takes of
// them.
constexpr std::size_t kFieldLength = 255;
constexpr std::size_t kOutlineLength = 80;

// The line around an outlined letter.
constexpr int kLineWidth = 16;         // thousandths of the font size
constexpr double kThinnestLine = 0.6;  // points

// Values that stand for what the sheet decides.
constexpr int kFit = 0;
constexpr int kDiagonal = kFullTurn + 1;

// The texts that have names.
struct NamedText {
    const char *name, *text;
};
struct Colour {
    const char *name, *red, *green, *blue;
};
// clang-format off
constexpr NamedText kTexts[] = {
    // name           text
    {"Draft",        "DRAFT"},
    {"Copy",         "COPY"},
    {"Confidential", "CONFIDENTIAL"},
};
constexpr Colour kColours[] = {
    // name     red  green  blue
    {"Black",   "0", "0",   "0"},
    {"Red",     "1", "0",   "0"},
    {"Orange",  "1", "0.5", "0"},
    {"Yellow",  "1", "1",   "0"},
    {"Green",   "0", "0.6", "0"},
    {"Cyan",    "0", "1",   "1"},
    {"Blue",    "0", "0",   "1"},
    {"Magenta", "1", "0",   "1"},
};
// clang-format on

// How the text looks, with the defaults.
struct Look {
    const Font *font = FindFont("Helvetica-Bold");
    int size = kFit;        // points
    int angle = kDiagonal;  // degrees, counter-clockwise from how the pages run
    const Colour *colour = kColours;
    int density = 40;  // per cent
    bool isFilled = false;
    bool onlyFirst = false;
};

// The row of a table with that name, or null.
template <typename Row, std::size_t count>
const Row *FindRow(const Row (&rows)[count], const char *name) {
    const Row *row = std::find_if(rows, rows + count,
                                  [&](const Row &r) { return strcasecmp(name, r.name) == 0; });
    return row != rows + count ? row : nullptr;
}

// The number that a short option is set to, or what it is otherwise.
int NumberOf(const CompletionContext &context, const char *option, int otherwise) {
    const char *value = ShortOptionValue(context, option);
    return value ? LeadingInteger(value) : otherwise;
}

Look LookOf(const CompletionContext &context) {
    Look look;
    if (const char *font = ShortOptionValue(context, "KVWatermarkFont")) look.font = FindFont(font);
    if (const char *colour = ShortOptionValue(context, "KVWatermarkColor")) {
        look.colour = FindRow(kColours, colour);
    }
    look.size = NumberOf(context, "KVWatermarkSize", look.size);
    look.angle = NumberOf(context, "KVWatermarkAngle", look.angle);
    look.density = NumberOf(context, "KVWatermarkDensity", look.density);
    look.isFilled = ShortOptionValue(context, "KVWatermarkStyle") != nullptr;
    look.onlyFirst = ShortOptionValue(context, "KVWatermarkPages") != nullptr;
    return look;
}

// An angle on the sheet.
struct Direction {
    int degrees;  // 0 to 359
    double cosine, sine;
};

Direction DirectionOn(const Sheet &sheet, int angle) {
    constexpr double kDegree = std::numbers::pi / 180;
    if (angle == kDiagonal) {
        const bool isOnItsSide = sheet.turn % 180 != 0;
        const double across = isOnItsSide ? sheet.height : sheet.width;
        const double up = isOnItsSide ? sheet.width : sheet.height;
        angle = static_cast<int>(std::lround(std::atan2(up, across) / kDegree));
    }
    const int degrees = (sheet.turn + angle + kFullTurn) % kFullTurn;
    return {degrees, std::cos(degrees * kDegree), std::sin(degrees * kDegree)};
}

// The largest size, in whole points, at which the turned box lies within the printable area, the
// middle of both being the sheet's; 0 if there is none.
int LargestSize(const Sheet &sheet, const Direction &direction, const TextBox &box) {
    const double halfWidth = std::min(sheet.width / 2 - sheet.left, sheet.right - sheet.width / 2);
    const double halfHeight =
        std::min(sheet.height / 2 - sheet.bottom, sheet.top - sheet.height / 2);
    const double along = (box.right - box.left) / 1000.0;
    const double up = (box.top - box.bottom) / 1000.0;
    const double cosine = std::abs(direction.cosine);
    const double sine = std::abs(direction.sine);
    const double size = 2 * std::min(halfWidth / (along * cosine + up * sine),
                                     halfHeight / (along * sine + up * cosine));
    return static_cast<int>(std::clamp<double>(size, 0, kLargestSize));
}

// The box with the line around its letters.
TextBox WithLine(const TextBox &box) {
    constexpr int kHalfLine = kLineWidth / 2;
    return {box.left - kHalfLine, box.bottom - kHalfLine, box.right + kHalfLine,
            box.top + kHalfLine};
}

// Two decimals, with a point in every locale.
std::string Decimal(double number) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 2);
    return {text, end.ptr};
}

// The operand for show that draws the outlines of a text and then shows nothing: they leave legible
// what they run across.
std::string Outlined(const std::string &operand, int size) {
    const double width = std::max(size * kLineWidth / 1000.0, kThinnestLine);
    std::string code = "gsave" + operand + "true charpath 1 setlinejoin ";
    return code.append(Decimal(width)).append(" setlinewidth stroke grestore()");
}

std::string Integer(double number) {
    return std::to_string(std::lround(number));
}

void AddKeys(const char *name, const WatermarkText &text, const Look &look, int size,
             const Sheet &sheet, const Direction &direction, CompletionContext &context) {
    // The printer starts the text in the lower left corner of its box; the ink begins elsewhere.
    const TextBox &box = text.box;
    const double scale = size / 1000.0;
    const double left = box.left * direction.cosine - box.bottom * direction.sine;
    const double bottom = box.left * direction.sine + box.bottom * direction.cosine;
    const auto add = [&](const char *key, const std::string &value) {
        AddKey(context, std::string(KV_TICKET "WMARK") + key + "Ticket", value);
    };
    add("Name", name);
    add("Type", "0");
    add("OnlyFirst", look.onlyFirst ? "1" : "0");
    add("Text", look.isFilled ? text.operand : Outlined(text.operand, size));
    add("Font", text.font);
    add("FontSize", std::to_string(size));
    add("ColorR", look.colour->red);
    add("ColorG", look.colour->green);
    add("ColorB", look.colour->blue);
    add("Density", std::to_string(look.density));
    add("Angle", std::to_string(direction.degrees));
    add("Orientation", "1");  // the sheet's own; how the pages stand on it is in the angle
    add("PaperWidth", Integer(sheet.width));
    add("PaperHeight", Integer(sheet.height));
    add("Width", Decimal((box.right - box.left) * scale));
    add("Height", Decimal((box.top - box.bottom) * scale));
    add("hOffset", Decimal(-left * scale));
    add("vOffset", Decimal(-bottom * scale));
}

}  // namespace

void ExpandWatermark(const char *value, CompletionContext &context) {
    if (JobValue(context, KV_TICKET "WMARKNameTicket")) return;  // it has one of its own
    const Look look = LookOf(context);
    const NamedText *named = FindRow(kTexts, value);
    WatermarkText text = MakeWatermarkText(*look.font, named ? named->text : value,
                                           kFieldLength - (look.isFilled ? 0 : kOutlineLength));
    if (text.box.left == text.box.right) {
        Note(context, TicketNotice::Dropped, "has no letters that the printer knows");
        return;
    }
    if (text.lacksLetters) {
        Note(context, TicketNotice::Changed, "loses the letters that the printer does not know");
    }
    if (text.isCut) Note(context, TicketNotice::Changed, "is too long and loses its end");

    if (!look.isFilled) text.box = WithLine(text.box);

    const Sheet sheet = SheetOf(context);
    const Direction direction = DirectionOn(sheet, look.angle);
    const int largest = LargestSize(sheet, direction, text.box);
    if (largest == 0) {
        Note(context, TicketNotice::Dropped, "does not fit the sheet");
        return;
    }
    if (look.size > largest) {
        std::string why = "is " + std::to_string(largest) + " points large; ";
        why.append(std::to_string(look.size)).append(" do not fit the sheet");
        Note(context, TicketNotice::Changed, why);
    }
    const int size = look.size == kFit ? largest : std::min(look.size, largest);
    AddKeys(named ? named->name : "Custom", text, look, size, sheet, direction, context);
}
