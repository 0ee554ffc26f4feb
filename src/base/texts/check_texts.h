// Keys of the language file's "Check" section: the warnings of
// `korvane check` and of --warnings.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::check {

inline constexpr MessageKey kPlace{"Check", "place"};
inline constexpr MessageKey kColumn{"Check", "column"};
inline constexpr MessageKey kNoDirective{"Check", "directive"};
inline constexpr MessageKey kAssignment{"Check", "assignment"};
inline constexpr MessageKey kNoFunction{"Check", "function"};
inline constexpr MessageKey kNoValue{"Check", "variable"};
inline constexpr MessageKey kUnknownSetting{"Check", "setting"};
inline constexpr MessageKey kUnendedRows{"Check", "rows"};
inline constexpr MessageKey kNoSection{"Check", "section"};
inline constexpr MessageKey kSuggestion{"Check", "suggest"};
inline constexpr MessageKey kNone{"Check", "none"};
inline constexpr MessageKey kCount{"Check", "count"};
inline constexpr MessageKey kMore{"Check", "more"};

}  // namespace korvane::texts::check
