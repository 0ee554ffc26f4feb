// Keys of the language file's "StatusBar1" section: the state a run reports
// to the window's status bar, and the bar's panels.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::status_bar {

inline constexpr MessageKey kReady{"StatusBar1", "stat1"};
inline constexpr MessageKey kCompiling{"StatusBar1", "stat2"};
inline constexpr MessageKey kMxRunning{"StatusBar1", "stat3"};
inline constexpr MessageKey kMxFailed{"StatusBar1", "stat4"};
inline constexpr MessageKey kOutsideProject{"StatusBar1", "excl"};
inline constexpr MessageKey kInsideProject{"StatusBar1", "chk"};
inline constexpr MessageKey kSaveOne{"StatusBar1", "saveone"};
inline constexpr MessageKey kSaveSeparate{"StatusBar1", "savesep"};
inline constexpr MessageKey kSaveModeOn{"StatusBar1", "saveact"};

}  // namespace korvane::texts::status_bar
