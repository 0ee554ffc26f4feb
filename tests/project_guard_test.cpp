// Runs cannot damage each other or the files they read: one run per project
// folder at a time, no output that is one of the run's inputs, and write
// failures that end with "cannot write" instead of success.
#include "shell/project_guard.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/cli.h"
#include "support/process.h"

using namespace korvane;

namespace {

struct ProjectGuard : test::CliProject {};

TEST_F(ProjectGuard, ASecondRunOnTheSameProjectIsRefusedBeforeItWritesAnything) {
  project.write("a.ipf", "crea,a\n");
  ProjectLock held;
  ASSERT_TRUE(held.acquire(project.folder()));
  ProjectLock second;
  EXPECT_FALSE(second.acquire(project.folder()));  // in this process too
  EXPECT_EQ(run("run a.ipf --engine none"), 1);
  EXPECT_NE(err().find(project.folder()), std::string::npos) << err();
  EXPECT_FALSE(project.exists("tmpinput.txt"));
  EXPECT_FALSE(project.exists("korvane-models.db"));
}

TEST_F(ProjectGuard, TheHoldEndsWithItsOwner) {
  {
    ProjectLock first;
    ASSERT_TRUE(first.acquire(project.folder()));
  }
  project.write("a.ipf", "crea,a\n");
  EXPECT_EQ(run("compile a.ipf"), 0);
  ProjectLock again;
  EXPECT_TRUE(again.acquire(project.folder()));
}

TEST_F(ProjectGuard, AnOutputThatIsAnInputIsRefusedAndTheFileKept) {
  const std::string input = "crea,a\r\n";
  project.write("road.ipf", input);
  EXPECT_EQ(run("compile road.ipf -o road.ipf"), 2);
  EXPECT_EQ(project.read("road.ipf"), input);
  EXPECT_EQ(run("compile road.ipf -o ./sub/../road.ipf"), 2);  // however it is named
  EXPECT_EQ(run("compile road.ipf --vars road.ipf"), 2);
  EXPECT_EQ(project.read("road.ipf"), input);

  project.write("tmpinput.txt", input);
  EXPECT_EQ(run("compile tmpinput.txt"), 2);
  EXPECT_EQ(project.read("tmpinput.txt"), input);

  project.write("complete.inp", input);
  EXPECT_EQ(run("run complete.inp --save-one --engine none"), 2);
  EXPECT_EQ(project.read("complete.inp"), input);
  EXPECT_NE(err().find("complete.inp"), std::string::npos) << err();

  project.write("compiled_part.inp", input);
  EXPECT_EQ(run("run compiled_part.inp --save-sep --engine none"), 0);  // not its own name
  project.write("part.ipf", "crea,p\r\n");
  EXPECT_EQ(run("run part.ipf compiled_part.inp --save-sep --engine none"), 2);
}

TEST_F(ProjectGuard, WriteFailuresEndWithCannotWrite) {
#ifdef _WIN32
  GTEST_SKIP() << "POSIX devices (/dev/full, /dev/null) and symbolic links, which MinGW's "
                  "std::filesystem cannot create";
#endif
  project.write("a.ipf", "crea,a\n");
  if (std::filesystem::exists("/dev/full")) {
    EXPECT_EQ(run("compile a.ipf -o /dev/full"), 1);
    EXPECT_NE(err().find("/dev/full"), std::string::npos) << err();
    test::ProgramRun toFull;
    toFull.argv = {test::builtProgram("korvane"), "compile", "a.ipf", "--home", home};
    toFull.folder = project.folder();
    toFull.out = "/dev/full";
    toFull.err = project.path("err.txt");
    EXPECT_EQ(test::runProgram(toFull), 1) << err();
  }
  EXPECT_EQ(run("compile a.ipf --vars /dev/null"), 1);  // a device is not replaced
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));

  project.write("real/vars.txt", "old");
  std::filesystem::create_symlink(project.path("real/vars.txt"), project.path("link.txt"));
  EXPECT_EQ(run("compile a.ipf --vars link.txt"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(project.path("link.txt")));  // written through
  EXPECT_EQ(project.read("real/vars.txt"), "");
}

}  // namespace
