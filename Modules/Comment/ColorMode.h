// SPDX-License-Identifier: Apache-2.0
//
// Colour or grey: stated once, so that the job-information block and the printer's render mode
// always agree.
#pragma once

// The job's colour mode, "COLOR" or "GRAYSCALE", from psoptioncomment. Null when the job names a
// mode that the PPD's own colour option knows: the PPD's feature code decides then.
const char *JobColorMode();
