// Test support: the korvane program run in a throw-away project with the
// shipped settings and language files.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/project.h"

namespace korvane::test {

struct CliProject : ::testing::Test {
  TempProject project;
  std::string home = sourceDir() + "/data";

  // Runs `korvane ARGS --home HOME` in the project; standard output goes to
  // out.txt and standard error to err.txt there.
  int run(const std::string& args) {
    return runKorvane(project.folder(), args + " --home '" + home + "'");
  }
  std::string err() const { return project.read("err.txt"); }
};

}  // namespace korvane::test
