#include "shell/editor_command.h"

#include "base/registry.h"
#include "hosts/process_start.h"

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
  return hosts::startDetached(commandLine, hosts::WindowState::Minimised);
}

}  // namespace korvane
