// `cmake --install` puts a korvane that works wherever the prefix is: it
// finds the settings and language files installed beside it and seeds the
// user's own folder from them.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <filesystem>

#include "support/process.h"
#include "support/project.h"

namespace korvane::test {
namespace {

namespace stdfs = std::filesystem;

int runInstalled(const TempProject& p, const std::string& prefix, const std::string& config) {
  ProgramRun run;
  run.argv = {p.path(prefix + "/bin/korvane"), "compile", "inputs/a.ipf", "--engine", "none"};
  run.folder = p.folder();
  run.env = {{"HOME", p.path("home")},
             {"XDG_CONFIG_HOME", p.path(config)},
             {"KORVANE_HOME", ""},
             {"KORVANE_LANG", ""}};
  run.out = p.path("out.txt");
  run.err = p.path("err.txt");
  return runProgram(run);
}

TEST(Install, TheInstalledProgramFindsItsFilesWhereverThePrefixIs) {
  TempProject p;
  p.write("inputs/a.ipf", "#n=3*4\ncrea,M|n|\n");
  ProgramRun install;
  install.argv = {KORVANE_CMAKE,   "--install", stdfs::path(KORVANE_BIN_DIR).parent_path().string(),
                  "--component",   "korvane",   "--prefix",
                  p.path("prefix")};
  install.out = p.path("install.txt");
  install.err = p.path("install-err.txt");
  ASSERT_EQ(runProgram(install), 0) << p.read("install-err.txt");
  ASSERT_TRUE(p.exists("prefix/share/korvane/Korvane.ini"));

  ASSERT_EQ(runInstalled(p, "prefix", "config"), 0) << p.read("err.txt");
  EXPECT_EQ(p.read("out.txt"), "crea,M12\r\n");
  EXPECT_TRUE(p.exists("config/korvane/Korvane.ini"));  // the user's copy to edit
  EXPECT_TRUE(p.exists("config/korvane/Hungarian.lng"));

  // Moved elsewhere, with a user who has no folder yet: still found.
  stdfs::rename(p.path("prefix"), p.path("moved"));
  ASSERT_EQ(runInstalled(p, "moved", "config2"), 0) << p.read("err.txt");
  EXPECT_EQ(p.read("out.txt"), "crea,M12\r\n");
  EXPECT_TRUE(p.exists("config2/korvane/Korvane.ini"));
}

}  // namespace
}  // namespace korvane::test
#endif
