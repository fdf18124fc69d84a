// SPDX-License-Identifier: Apache-2.0
//
// The names of the user and the document as the printer's PJL strings hold them, where plain CUPS
// stands in front of the filter: whoever prints is charged under a name where the printer can read
// it, and no name ends the line that holds it.
#pragma once

// Sets StdUserName, StdJBAUserName and StdDocumentName anew from the user and the title, UTF-8, and
// says where a name is not known to the printer.
void SetJobNamesForCUPS(const char *user, const char *title);
