// SPDX-License-Identifier: Apache-2.0
//
// What all objects of the stand-in have in common: a count of references, made with one, and a
// destructor that runs when the last is released. CFTypeRef is a bare pointer, so an object type
// derives from CFObject first and only once.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <new>
#include <utility>

struct CFObject {
    CFObject() = default;
    virtual ~CFObject() = default;
    CFObject(const CFObject &) = delete;
    CFObject &operator=(const CFObject &) = delete;

    mutable std::atomic<CFIndex> references{1};
};

// A new object, or null where memory is short.
template <class Object, class... Arguments>
Object *NewObject(Arguments &&...arguments) noexcept {
    try {
        return new Object(std::forward<Arguments>(arguments)...);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
