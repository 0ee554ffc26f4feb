#include "shell/help_viewer.h"

#include "base/fs.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace korvane {

std::string helpViewerCommandLine(const std::string& chmFile) {
  return "hh.exe \"" + chmFile + "\"";
}

bool showHelpFile(const std::string& chmFile) {
  if (!fs::fileExists(chmFile)) return false;
#ifdef _WIN32
  STARTUPINFOA si{};
  si.cb = sizeof si;
  PROCESS_INFORMATION pi{};
  std::string line = helpViewerCommandLine(chmFile);  // CreateProcess may write into it
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi))
    return false;
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return true;
#else
  return false;
#endif
}

}  // namespace korvane
