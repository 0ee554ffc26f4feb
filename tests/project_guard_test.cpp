// Runs cannot damage each other or the files they read: one run per project
// folder at a time, and on Windows write failures that end with "cannot write"
// instead of success. The outputs a run may not write over, and the write
// failures of POSIX systems, are tests/cli/outputs.t and write_failures.t.
#include "shell/project_guard.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/mx/null_engine.h"
#include "shell/startup.h"
#include "support/cli.h"

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

// MX cannot undo what its runs change: where it is only the default, looking
// (check, compile) runs no engine and says so.
TEST_F(ProjectGuard, LookingRunsNoEngineWhereMxIsOnlyTheDefault) {
  StartupOptions o;
  o.home = home;
  o.project = project.folder();
  o.language = "en";
  o.defaultEngine = EngineKind::Mx;
  o.looking = true;
  Startup started;
  RunContext ctx;
  std::string error;
  ASSERT_TRUE(startUp(o, started, ctx, error)) << error;
  EXPECT_EQ(started.note,
            "MX cannot undo its runs, so no engine runs: model queries find nothing (with "
            "--engine mx, MX runs and changes its models)");
  EXPECT_TRUE(dynamic_cast<hosts::NullEngine*>(ctx.engine));
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
}
#endif

}  // namespace
