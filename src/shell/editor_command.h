// Edit input on Windows: the open command registered for ".ipf" files, or
// Notepad when there is none, started minimised without waiting. Other
// systems have no registry; the window asks the desktop instead.
#pragma once

#include <string>

namespace korvane {

// The command line that opens `path`: the first "%SystemRoot%" of the
// registered command replaced by `systemRoot`, its first "%1" by the path (a
// command without "%1" is started as it stands); "notepad.exe " and the path
// when no command is registered.
std::string editorCommandLine(std::string registeredCommand, const std::string& systemRoot,
                              const std::string& path);

// The open command registered for ".ipf" files; empty where there is none.
std::string registeredEditorCommand();

// Starts a command line as a minimised window that has the focus, without
// waiting for it. False when it could not be started (and always off Windows).
bool startMinimised(const std::string& commandLine);

}  // namespace korvane
