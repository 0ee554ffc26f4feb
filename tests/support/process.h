// Test support: starting a program with its standard streams in files, the
// same way on every system (no shell in between).
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace korvane::test {

struct ProgramRun {
  std::vector<std::string> argv;           // argv[0] is the program's path
  std::string folder;                      // working folder; "" = the current one
  std::map<std::string, std::string> env;  // added to the inherited environment
  std::string in, out, err;                // files; "" = the null device (out/err: discarded)
  int timeoutSeconds = 120;                // the program is killed after this
  // Asked again and again while the program runs: once it answers true, the
  // program gets Ctrl-C (SIGINT). Not on Windows.
  std::function<bool()> interruptWhen;
};

// The program's exit status; -1 when it could not be started or was killed.
int runProgram(const ProgramRun& run);

// Splits a command line written with POSIX shell quoting ('...' and "...") into words.
std::vector<std::string> shellWords(const std::string& line);

// This process's id, to keep the files of tests running side by side apart.
int currentProcessId();

// The name of a program built beside korvane ("korvane" becomes korvane.exe on Windows).
std::string builtProgram(const std::string& name);

}  // namespace korvane::test
