// SPDX-License-Identifier: Apache-2.0
#error "macOS has no <sys/sendfile.h>"
