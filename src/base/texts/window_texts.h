// Keys of the language file's "Window" section: the window's own messages
// and the lines of its run log.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::window {

inline constexpr MessageKey kListing{"Window", "listing"};
inline constexpr MessageKey kLogEntry{"Window", "logentry"};
inline constexpr MessageKey kNoHelp{"Window", "nohelp"};
inline constexpr MessageKey kNoEditor{"Window", "noeditor"};
inline constexpr MessageKey kAbout{"Window", "about"};
inline constexpr MessageKey kVersion{"Window", "version"};
inline constexpr MessageKey kProject{"Window", "project"};
inline constexpr MessageKey kSettings{"Window", "settings"};

}  // namespace korvane::texts::window
