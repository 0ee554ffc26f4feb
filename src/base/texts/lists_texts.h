// Keys of the language file's "Lists" section: the viewer of the last run's
// variables and log.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::lists {

inline constexpr MessageKey kCaption{"Lists", "Caption"};
inline constexpr MessageKey kVariables{"Lists", "Vars"};
inline constexpr MessageKey kVariablesTip{"Lists", "Varstip"};
inline constexpr MessageKey kLog{"Lists", "Sups"};
inline constexpr MessageKey kLogTip{"Lists", "Supstip"};

}  // namespace korvane::texts::lists
