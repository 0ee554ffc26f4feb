#include "hosts/process_start.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace korvane::hosts {

bool startDetached(const std::string& commandLine, WindowState state) {
#ifdef _WIN32
  STARTUPINFOA si{};
  si.cb = sizeof si;
  if (state == WindowState::Minimised) {
    si.dwFlags = STARTF_USESHOWWINDOW;
    si.wShowWindow = SW_SHOWMINIMIZED;  // minimised, with the focus
  }
  PROCESS_INFORMATION pi{};
  std::string line = commandLine;  // CreateProcess may write into it
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi))
    return false;
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return true;
#else
  (void)commandLine;
  (void)state;
  return false;
#endif
}

}  // namespace korvane::hosts
