// SPDX-License-Identifier: Apache-2.0
//
// The pass of a document whose PPD wants its features as PJL (KVPSDecompMode is "1").
#pragma once

void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int argc, char *const argv[]);
