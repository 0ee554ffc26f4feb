// The choice of the AutoCAD instance, against a fake automation system.
// Compiles that play scripts and key-ins through fake AutoCAD and MicroStation
// and ask AutoCAD are the golden cases cad_*.
#include <gtest/gtest.h>

#include "compiler/failure_message.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "support/automation.h"
#include "support/project.h"

using namespace korvane;

namespace {

// The lookup as a compile meets it: "found", or the message that ends the run.
std::string lookUp(RunContext& ctx, hosts::AutomationSystem& sys) {
  try {
    return lookUpAutoCad(ctx, sys) ? "found" : "none";
  } catch (const CompileFailure& f) {
    return describeFailure(ctx.messages, f);
  }
}

const std::string kNoAutoCad =
    "No running AutoCAD instance found. Start AutoCAD or check the value of g_acadver.";

TEST(AutoCadLookup, ChoosesTheInstanceThatGAcadverAsksFor) {
  test::TempProject project;
  test::Compiler c{project};
  std::vector<std::string> attached, log;
  test::RecordingSystem sys{attached};
  test::FakeAutoCad acad{log};
  sys.processes["acad.exe"] = {"\"C:\\A17\\acad.exe\" /nologo", "\"C:\\A18\\ACAD.EXE\""};
  sys.versions = {{"C:\\A17\\acad.exe", "17.1"}, {"C:\\A18\\ACAD.EXE", "18.0"}};
  sys.running["AutoCAD.Application.18.0"] = acad.app;
  sys.running["AutoCAD.Application.17.1"] = acad.app;

  EXPECT_EQ(lookUp(c.ctx, sys), "found");  // undefined: LATEST
  c.ctx.vars.set("g_acadver", "OLDEST");
  EXPECT_EQ(lookUp(c.ctx, sys), "found");
  EXPECT_EQ(attached, (std::vector<std::string>{"running AutoCAD.Application.18.0",
                                                "running AutoCAD.Application.17.1"}));
  c.ctx.vars.set("g_acadver", "2007");  // 17.0: not running
  EXPECT_EQ(lookUp(c.ctx, sys),
            "No running AutoCAD 2007 instance found. Start AutoCAD or check the value of "
            "g_acadver.");

  sys.processes["acad.exe"].pop_back();  // one process: always the plain name
  sys.running["AutoCAD.Application"] = acad.app;
  c.ctx.vars.set("g_acadver", "LATEST");
  EXPECT_EQ(lookUp(c.ctx, sys), "found");
  EXPECT_EQ(attached.back(), "running AutoCAD.Application");

  sys.processes.clear();
  EXPECT_EQ(lookUp(c.ctx, sys), kNoAutoCad);
}

TEST(AutoCadLookup, LauncherReleaseComesFromTheRegistry) {
  std::vector<std::string> attached;
  test::RecordingSystem sys{attached};
  EXPECT_EQ(launcherRelease(sys), "1");  // no launcher
  sys.processes["miarun.exe"] = {"miarun.exe /VERSION=ACAD-5001:409 /x"};
  sys.registry["SOFTWARE\\Autodesk\\AutoCAD"] = {"R16.2", "R17.0"};
  sys.registry["SOFTWARE\\Autodesk\\AutoCAD\\R17.0"] = {"ACAD-5001:409"};
  EXPECT_EQ(launcherRelease(sys), "17.0");
  sys.processes["miarun.exe"] = {"miarun.exe /version=ACAD-9:1"};
  EXPECT_EQ(launcherRelease(sys), "");
}

}  // namespace
