// Runs cannot damage each other or the files they read: one run per project
// folder at a time, no output that is one of the run's inputs, and write
// failures that end with "cannot write" instead of success.
#include "shell/project_guard.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/cli.h"
#include "support/process.h"

#ifdef _WIN32
#include <windows.h>
#endif

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

#ifdef _WIN32
// On Windows a read-only folder still takes new files; what refuses a write is
// a read-only file, and a file that another program holds open without
// sharing it (an editor, Excel).
TEST_F(ProjectGuard, WriteFailuresEndWithCannotWrite) {
  project.write("a.ipf", "crea,a\n");
  const auto wide = [&](const char* name) { return std::filesystem::path(project.path(name)); };
  // Wine keeps the read-only attribute as the file's Unix write permission,
  // which does not bind the administrator (root) that CI runs the tests as.
  const bool underWine = GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version");
  if (!underWine) {
    project.write("kept.inp", "old");
    ASSERT_TRUE(SetFileAttributesW(wide("kept.inp").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(run("compile a.ipf -o kept.inp"), 1);
    EXPECT_NE(err().find("kept.inp"), std::string::npos) << err();
    EXPECT_EQ(run("compile a.ipf --vars kept.inp"), 1);
    EXPECT_EQ(project.read("kept.inp"), "old");
    SetFileAttributesW(wide("kept.inp").c_str(), FILE_ATTRIBUTE_NORMAL);
  }

  project.write("held.txt", "old");
  HANDLE held = CreateFileW(wide("held.txt").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(run("compile a.ipf -o held.txt"), 1);
  EXPECT_NE(err().find("held.txt"), std::string::npos) << err();
  EXPECT_EQ(run("compile a.ipf --vars held.txt"), 1);
  CloseHandle(held);
  EXPECT_EQ(project.read("held.txt"), "old");
  EXPECT_FALSE(project.exists("held.txt.korvane-new"));  // nothing left beside it

  EXPECT_EQ(run("compile a.ipf --vars sub"), 0);
  std::filesystem::remove(wide("sub"));
  std::filesystem::create_directory(wide("sub"));
  EXPECT_EQ(run("compile a.ipf --vars sub"), 1);  // a folder is not replaced
  EXPECT_TRUE(std::filesystem::is_directory(wide("sub")));
}
#else
TEST_F(ProjectGuard, WriteFailuresEndWithCannotWrite) {
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

#endif

}  // namespace
