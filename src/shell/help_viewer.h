// Help: the compiled HTML help file beside the program ("Korvane" + HU or EN +
// ".chm"), shown by Windows' HTML help viewer.
#pragma once

#include <string>

namespace korvane {

// The command line that shows a help file in the HTML help viewer.
std::string helpViewerCommandLine(const std::string& chmFile);

// Shows the help file without waiting for the viewer. False when the file is
// not there or the viewer could not be started (always off Windows, where
// the window asks the desktop instead).
bool showHelpFile(const std::string& chmFile);

}  // namespace korvane
