#include "shell/editor_command.h"

#include "base/registry.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace korvane {
namespace {

void replaceFirst(std::string& text, const std::string& what, const std::string& by) {
  const std::size_t at = text.find(what);
  if (at != std::string::npos) text.replace(at, what.size(), by);
}

}  // namespace

std::string editorCommandLine(std::string command, const std::string& systemRoot,
                              const std::string& path) {
  if (command.empty()) return "notepad.exe " + path;
  replaceFirst(command, "%SystemRoot%", systemRoot);
  replaceFirst(command, "%1", path);
  return command;
}

std::string registeredEditorCommand() {
  const std::string type = ReadRegistryString(RegistryHive::ClassesRoot, ".ipf", "");
  if (type.empty()) return {};
  return ReadRegistryString(RegistryHive::ClassesRoot, type + "\\shell\\open\\command", "");
}

bool startMinimised(const std::string& commandLine) {
#ifdef _WIN32
  STARTUPINFOA si{};
  si.cb = sizeof si;
  si.dwFlags = STARTF_USESHOWWINDOW;
  si.wShowWindow = SW_SHOWMINIMIZED;  // minimised, with the focus
  PROCESS_INFORMATION pi{};
  std::string line = commandLine;  // CreateProcess may write into it
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi))
    return false;
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return true;
#else
  (void)commandLine;
  return false;
#endif
}

}  // namespace korvane
