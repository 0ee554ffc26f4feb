// Keys of the language file's "Caption1" section: the captions over the
// window's lists.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::caption {

inline constexpr MessageKey kInputFiles{"Caption1", "s1"};
inline constexpr MessageKey kSections{"Caption1", "s2"};
inline constexpr MessageKey kToRun{"Caption1", "s3"};
inline constexpr MessageKey kAll{"Caption1", "s4"};

}  // namespace korvane::texts::caption
