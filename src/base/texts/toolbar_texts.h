// Keys of the language file's "ToolBar1" section: the tool tips of the
// window's tool bar.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::toolbar {

inline constexpr MessageKey kRun{"ToolBar1", "run"};
inline constexpr MessageKey kRefresh{"ToolBar1", "refresh"};
inline constexpr MessageKey kVariables{"ToolBar1", "lists"};
inline constexpr MessageKey kFolderPanel{"ToolBar1", "dir"};
inline constexpr MessageKey kHome{"ToolBar1", "home"};
inline constexpr MessageKey kHelp{"ToolBar1", "help"};
inline constexpr MessageKey kStop{"ToolBar1", "stop"};

}  // namespace korvane::texts::toolbar
