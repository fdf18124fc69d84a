// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/JobNames.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/NameValidation.h"
#include "FrontEnd/Messages.h"
#include "FrontEnd/TicketText.h"

namespace {

// A line of 229 bytes, which is as much as the commands allow, holds so many of a name.
constexpr std::size_t kNameSize = 200;

bool IsBlank(const std::string &text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

// A PPD that does not say what the printer reads means ASCII.
bool IsReadable(const std::string &name) {
    const bool ascii = std::none_of(name.begin(), name.end(), [](char byte) {
        return static_cast<unsigned char>(byte) > 0x7E;
    });
    return !IsBlank(name) && (ascii || PrinterReadsUTF8() || PrinterReadsLatin1());
}

void SetUserName(const char *user) {
    const PrinterText name = MakePrinterText(user, kNameSize);
    const bool readable = IsReadable(name.bytes);
    CopyBounded(StdUserName, readable ? name.bytes.c_str() : defaultUserName);
    const std::string charged = MakePrinterText(user, sizeof StdJBAUserName - 1).bytes;
    CopyBounded(StdJBAUserName, readable ? charged.c_str() : defaultUserName);
    if (!readable) {
        ReportWarning(std::string("the printer does not know the letters of the user's name: ") +
                      defaultUserName + " is charged");
    } else if (name.changed) {
        ReportWarning(
            "the user's name loses letters or quotation marks that the printer does not know, or "
            "is too long");
    }
}

}  // namespace

void SetJobNamesForCUPS(const char *user, const char *title) try {
    SetUserName(user);
    CopyBounded(StdDocumentName, MakePrinterText(title, kNameSize).bytes.c_str());
    std::replace(PTStdDocumentName, PTStdDocumentName + std::strlen(PTStdDocumentName), '"', '\'');
} catch (const std::bad_alloc &) {  // GCOVR_EXCL_START: fault
    CopyBounded(StdUserName, defaultUserName);
    CopyBounded(StdJBAUserName, defaultUserName);
    ReportWarning("no memory for the user's name");
}  // GCOVR_EXCL_STOP
