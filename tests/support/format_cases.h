// Table-driven checks of Format: value, pattern, expected text.
#pragma once

#include <gtest/gtest.h>

#include "base/conversions.h"

namespace korvane::test {

struct FormatCase {
  const char* value;
  const char* pattern;
  const char* expected;
};

template <std::size_t N>
void checkFormat(const FormatCase (&cases)[N]) {
  for (const FormatCase& c : cases)
    EXPECT_EQ(conv::Format(c.value, c.pattern), c.expected)
        << "Format(\"" << c.value << "\", \"" << c.pattern << "\")";
}

}  // namespace korvane::test
