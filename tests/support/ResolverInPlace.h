// SPDX-License-Identifier: Apache-2.0
//
// Puts a resolver of the test's own in the place of the system's while it lives.
#pragma once

#include "CommonSource/CoreFoundation/HostResolver.h"

class ResolverInPlace {
  public:
    ResolverInPlace(int (*lookUp)(const char *, CFMutableArrayRef),
                    std::chrono::milliseconds timeout)
        : system_(hostResolver) {
        hostResolver = {lookUp, timeout};
    }
    ~ResolverInPlace() { hostResolver = system_; }
    ResolverInPlace(const ResolverInPlace &) = delete;
    ResolverInPlace &operator=(const ResolverInPlace &) = delete;

  private:
    const HostResolver system_;
};
