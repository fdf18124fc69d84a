// SPDX-License-Identifier: Apache-2.0
// What this machine's library lacks on its own processor is of no interest here.
#pragma once
