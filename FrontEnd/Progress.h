// SPDX-License-Identifier: Apache-2.0
//
// What CUPS is told while pages pass: the page log, which counts, and the progress, which people
// see beside the job.
#pragma once

// Tells that page `page` of the job, counted from 1, is on its way to the printer, which prints it
// `copies` times. `pages` is how many there are, 0 if that is not known. Each page is logged; the
// progress is told at most four times a second and not at all for a job that is through sooner.
void ReportPage(int page, int copies, int pages);
