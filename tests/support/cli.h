// Test support: the korvane program run in a throw-away project with the
// shipped settings and language files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/codepage.h"
#include "support/project.h"

namespace korvane::test {

// A text of the program as a terminal shows it, and a name as the program
// takes it on its command line: UTF-8 on Linux, the ANSI code page (the
// users' own) on Windows.
inline std::string asShown(const std::string& cp1250) {
#ifdef _WIN32
  return cp1250;
#else
  return cp::toUtf8(cp1250);
#endif
}

// What the program wrote to its standard error, with "\n" line ends: on
// Windows standard error is in text mode and writes each "\n" as CR LF (a CR
// of the text itself stays).
inline std::string errorText(std::string text) {
#ifdef _WIN32
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
    text.erase(at, 1);
#endif
  return text;
}

struct CliProject : ::testing::Test {
  TempProject project;
  std::string home = sourceDir() + "/data";

  // A project as engineers lay it out: the folder holds an "inputs" folder.
  CliProject() { std::filesystem::create_directories(project.path("inputs")); }

  // Runs `korvane ARGS --home HOME` in the project; standard output goes to
  // out.txt and standard error to err.txt there.
  int run(const std::string& args) {
    return runKorvane(project.folder(), args + " --home '" + home + "'");
  }
  std::string out() const { return project.read("out.txt"); }
  std::string err() const { return errorText(project.read("err.txt")); }
};

// The example project (examples/road) in the project folder.
struct ExampleProject : CliProject {
  ExampleProject() {
    std::filesystem::copy(sourceDir() + "/examples/road", project.folder(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
  }
};

}  // namespace korvane::test
