// Test support: the korvane program run in a throw-away project with the
// shipped settings and language files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/project.h"

namespace korvane::test {

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
  std::string err() const { return project.read("err.txt"); }
};

}  // namespace korvane::test
