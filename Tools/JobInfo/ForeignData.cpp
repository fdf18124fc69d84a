// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/ForeignData.h"

namespace {

struct Signature {
    std::string_view beginning;
    const char *name;
};

constexpr Signature signatures[] = {
    {"%!", "PostScript without a job around it"},
    {"\x04%!", "PostScript without a job around it"},
    {"%PDF-", "a PDF document"},
    {"\x1b%-12345X", "a PJL job"},
    {"@PJL", "PJL that no universal exit language leads in"},
    {"\x1b"
     "E",
     "a PCL job"},
    {"\x1b&", "a PCL job"},
    {"\x1b*", "a PCL job"},
    {") HP-PCL XL", "a PCL XL job"},
    {"RaS", "a raster document"},
    {"UNIRAST", "a raster document"},
    {"\x89PNG", "a PNG picture"},
    {"\xff\xd8\xff", "a JPEG picture"},
    {"GIF8", "a GIF picture"},
    {"II*", "a TIFF picture"},
    {"MM\0*", "a TIFF picture"},
    {"PK\x03\x04", "a ZIP archive or an office document"},
    {"\x1f\x8b", "compressed data"},
    {"*PPD-Adobe", "a PPD file"},
    {"{\\rtf", "an RTF document"},
    {"<!DOCTYPE html", "an HTML document"},
};

}  // namespace

const char *NameOfData(std::string_view beginning) {
    for (const Signature &signature : signatures) {
        if (beginning.starts_with(signature.beginning)) return signature.name;
    }
    return nullptr;
}
