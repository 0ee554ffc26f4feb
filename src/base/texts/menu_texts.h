// Keys of the language file's "Menu1" section: the window's menus and their
// entries.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::menu {

inline constexpr MessageKey kFile{"Menu1", "File"};
inline constexpr MessageKey kEdit{"Menu1", "Edit"};
inline constexpr MessageKey kSelect{"Menu1", "Select"};
inline constexpr MessageKey kSelectAll{"Menu1", "SelectAll"};
inline constexpr MessageKey kRun{"Menu1", "Run"};
inline constexpr MessageKey kStop{"Menu1", "Stop"};
inline constexpr MessageKey kDelete{"Menu1", "Delete"};
inline constexpr MessageKey kDeleteAll{"Menu1", "DeleteAll"};
inline constexpr MessageKey kExit{"Menu1", "Exit"};
inline constexpr MessageKey kTools{"Menu1", "Tools"};
inline constexpr MessageKey kRefresh{"Menu1", "Refresh"};
inline constexpr MessageKey kFolderPanel{"Menu1", "Dir"};
inline constexpr MessageKey kVariables{"Menu1", "Lists"};
inline constexpr MessageKey kHome{"Menu1", "Home"};
inline constexpr MessageKey kLongsection{"Menu1", "Long"};
inline constexpr MessageKey kLongsectionDraw{"Menu1", "LongDraw"};
inline constexpr MessageKey kHelp{"Menu1", "Help"};
inline constexpr MessageKey kHelpContents{"Menu1", "CHM"};
inline constexpr MessageKey kAbout{"Menu1", "About"};
inline constexpr MessageKey kEditInput{"Menu1", "InpsEdit"};
inline constexpr MessageKey kToRunDelete{"Menu1", "ToRunDel"};
inline constexpr MessageKey kToRunDeleteAll{"Menu1", "ToRunDelAll"};
inline constexpr MessageKey kToRunCopy{"Menu1", "ToRunCopy"};

}  // namespace korvane::texts::menu
