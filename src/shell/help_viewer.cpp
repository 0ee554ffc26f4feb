#include "shell/help_viewer.h"

#include "base/fs.h"
#include "hosts/process_start.h"

namespace korvane {

std::string helpViewerCommandLine(const std::string& chmFile) {
  return "hh.exe \"" + chmFile + "\"";
}

bool showHelpFile(const std::string& chmFile) {
  return fs::fileExists(chmFile) && hosts::startDetached(helpViewerCommandLine(chmFile));
}

}  // namespace korvane
