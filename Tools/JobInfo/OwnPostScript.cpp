// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/OwnPostScript.h"

namespace {

struct Piece {
    std::string_view beginning;  // its first line
    const char *meaning;
};
constexpr Piece pieces[] = {
    {"userdict/kvxInfo 2 dict dup begin", "watermark: its procedures"},
    {"/kvxStamp currentdict def", "watermark: what stamps the pages"},
    {"kvxbp", "watermark: a page begins"},
    {"pgsave restore /pgsave save store gsave", "watermark: the stamp"},
    {"pm restore /pm save store gsave", "watermark: the stamp"},
    {"kvxpgsave restore /kvxpgsave save store gsave", "watermark: the stamp"},
};

// What a feature that no PPD describes calls, somewhere in its line.
constexpr Piece procedures[] = {
    {"/setsignatureimageshift", "auto-fit: shift of the image"},
    {"/setsignatureautoscale", "auto-fit: scaling"},
    {"/setcoverseparator", "separator pages"},
};

}  // namespace

const char *MeaningOfOwnPostScript(std::string_view line, bool inFeature) {
    for (const Piece &piece : pieces) {
        if (line == piece.beginning) return piece.meaning;
    }
    if (!inFeature) return nullptr;
    for (const Piece &procedure : procedures) {
        if (line.find(procedure.beginning) != line.npos) return procedure.meaning;
    }
    return nullptr;
}
