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
// Warned while a run compiles, by default.
inline constexpr MessageKey kNoModel{"Check", "model"};
inline constexpr MessageKey kNoString{"Check", "string"};
inline constexpr MessageKey kNoWorkbook{"Check", "workbook"};
inline constexpr MessageKey kNotInCodePage{"Check", "codepage"};
inline constexpr MessageKey kControlCharacter{"Check", "control"};

}  // namespace korvane::texts::check
