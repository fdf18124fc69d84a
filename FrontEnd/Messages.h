// SPDX-License-Identifier: Apache-2.0
//
// What the filter tells people through CUPS: one line each on standard error, with CUPS's prefix
// for its kind. Nothing is written unless plain CUPS stands in front of the filter
// (FrontEnd.h). A message names what it is about and the cause, and never a password.
#pragma once

#include <string_view>

// "ERROR: text": the job could not be printed whole. The exit status will be 1.
void ReportError(std::string_view text);

// "ERROR: text: cause", the cause in the words of the system; `error` is an errno.
void ReportError(std::string_view text, int error);

// "ERROR: name what: cause", as in "/tmp/a could not be read: Input/output error".
void ReportError(std::string_view name, std::string_view what, int error);

// "WARNING: text": something that the user asked for was dropped or changed.
void ReportWarning(std::string_view text);

// "WARNING: text: cause".
void ReportWarning(std::string_view text, int error);

// "INFO: text": what CUPS shows beside a job that is being printed.
void ReportInfo(std::string_view text);

// "DEBUG: text": for the scheduler's log only.
void ReportDebug(std::string_view text);

// "ATTR: text": the value of an attribute that CUPS keeps of the job or the printer,
// "job-media-progress=50".
void ReportAttribute(std::string_view text);

// Whether an error has been reported: the job's exit status is then 1.
bool ErrorWasReported();
