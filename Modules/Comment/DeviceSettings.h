// SPDX-License-Identifier: Apache-2.0
//
// Settings of the printer that the PPD offers and the job chooses: line weight and render mode.
#pragma once

// Writes the line weight and the render mode of psoptioncomment to standard output, as far as the
// job gives them. Returns what the last KVfputs returned, or 1 when it leaves the render mode to
// the PPD's own feature code.
int OutputKPJLCommandOthers();
