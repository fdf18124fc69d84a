// SPDX-License-Identifier: Apache-2.0
//
// Checks that ticket keys reach the fields of a module's record.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

// A key, its field and, for a text, the field's size.
struct TicketField {
    TicketField(const char *fieldKey, const std::int32_t &field)
        : key(fieldKey), integer(&field), text(nullptr), size(0) {}
    template <std::size_t fieldSize>
    TicketField(const char *fieldKey, const char (&field)[fieldSize], std::size_t textSize)
        : key(fieldKey), integer(nullptr), text(field), size(textSize) {}

    std::string key;
    const std::int32_t *integer;
    const char *text;
    std::size_t size;
};

inline void ReadTicket(int (*getTicket)(char *const argv[]), std::string options) {
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    EXPECT_EQ(getTicket(argv), 1);
}

// Each key alone fills its field and no other; a text of one byte too many is cut to the field, and
// one that just fits is not.
inline void ExpectFields(int (*getTicket)(char *const argv[]),
                         const std::vector<TicketField> &fields) {
    const std::string text(300, 'x');
    for (const TicketField &given : fields) {
        SCOPED_TRACE(given.key);
        for (const std::size_t more : {1U, 0U}) {
            const std::string value = given.text ? text.substr(0, given.size - 1 + more) : "42";
            ReadTicket(getTicket, given.key + "=" + value);
            for (const TicketField &field : fields) {
                SCOPED_TRACE(field.key);
                const bool isGiven = field.key == given.key;
                if (field.integer) {
                    EXPECT_EQ(*field.integer, isGiven ? 42 : -1);
                } else {
                    EXPECT_EQ(field.text, isGiven ? value.substr(0, field.size - 1) : "");
                }
            }
        }
    }
}
