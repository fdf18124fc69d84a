// SPDX-License-Identifier: Apache-2.0
//
// The PPD of the job's queue, named by the environment variable "PPD". It is opened when first
// asked for and shared by all who read it: opening a large PPD costs milliseconds.
#pragma once

#include <cups/ppd.h>

// The job's PPD, or null when it is missing or unreadable. Owned here; callers do not close it.
ppd_file_t *JobPPD();

// Forgets the PPD, so that the next call opens the one that "PPD" names then.
void CloseJobPPD();

// The first attribute, in file order, whose keyword begins with `name`, or null (also without a
// PPD). A prefix is enough on purpose.
ppd_attr_t *ppdFindAttr_ALT(ppd_file_t *ppd, const char *name);

// Whether the job's PPD has the attribute `name` and its value is exactly `value`.
bool JobPPDAttributeIs(const char *name, const char *value);

// The PPD keywords that the steps of a job ask for.
// clang-format off
constexpr char KPPDColorDeviceKey[]             = "ColorDevice";                // "False": monochrome
constexpr char KPPDColorModeKey[]               = "KVColorMode";                // the PPD sets the render mode
constexpr char KPPDCommentOnKey[]               = "CommentOn";                  // "True": job-information block
constexpr char KPPDFrontEndKey[]                = "KVFrontEnd";                 // "CUPS": plain CUPS sends the jobs
constexpr char KPPDPCFileNameKey[]              = "PCFileName";                 // has the model's product-type code
constexpr char KPPDPrinterLanguageEncodingKey[] = "KVPrinterLanguageEncoding";  // of the job-information block
constexpr char KPPDPSDecompModeKey[]            = "KVPSDecompMode";             // "1": PPD features become PJL
// clang-format on
