// SPDX-License-Identifier: Apache-2.0
//
// Image direction, binding side and division of booklets, for printers whose language is UTF-8.
#pragma once

// Writes the commands that psoptioncomment asks for to standard output; none unless the PPD's
// KVPrinterLanguageEncoding is "UTF-8". Returns what the last KVfputs returned, 0 without one.
int OutputKPJLCommandforBooklet();
