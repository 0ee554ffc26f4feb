// Keys of the language file's "Messages" section: what ends a run (a
// StopMessage takes these alone) and the window's few boxes.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::messages {

struct Key : MessageKey {
  using MessageKey::MessageKey;
};

inline constexpr Key kAlreadyRunning{"Messages", "s1"};
inline constexpr Key kRunStopped{"Messages", "s4"};
inline constexpr Key kMxStoppedEarly{"Messages", "s5"};
inline constexpr Key kExcelNotRunning{"Messages", "s8"};
inline constexpr Key kFileNotFound{"Messages", "s9"};
inline constexpr Key kInputPrompt{"Messages", "s10"};
inline constexpr Key kExcelMacroFailed{"Messages", "s12"};
inline constexpr Key kSectionNotFound{"Messages", "s13"};
inline constexpr Key kLineNotFound{"Messages", "s14"};
inline constexpr Key kNoAutocad{"Messages", "s15"};
inline constexpr Key kAutocadRelease{"Messages", "s17"};
inline constexpr Key kStrictStop{"Messages", "strict"};

}  // namespace korvane::texts::messages
