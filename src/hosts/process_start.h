// Starting another program and leaving it running: the editor, the help viewer.
#pragma once

#include <string>

namespace korvane::hosts {

enum class WindowState { Normal, Minimised };

// Starts `commandLine` without waiting for it. False when it cannot be started,
// and always off Windows, where there is no program of this kind to start.
bool startDetached(const std::string& commandLine, WindowState state = WindowState::Normal);

}  // namespace korvane::hosts
