// The AutoCAD and MicroStation channels against fake automation objects that
// record what they are sent, and the choice of the AutoCAD instance.
#include <gtest/gtest.h>

#include "compiler/failure_message.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "support/automation.h"
#include "support/project.h"

using namespace korvane;
using hosts::AutoValue;

namespace {

using test::RecordingObject;

struct AutoCad {
  std::vector<std::string> log;
  std::shared_ptr<RecordingObject> app = std::make_shared<RecordingObject>(log, "acad");
  std::shared_ptr<RecordingObject> docs = std::make_shared<RecordingObject>(log, "docs");
  std::shared_ptr<RecordingObject> doc = std::make_shared<RecordingObject>(log, "doc");
  int busyPolls = 3;
  AutoCad() {
    docs->answers["Count"] = 0;
    app->answers["Documents"] = hosts::AutoObject(docs);
    app->answers["ActiveDocument"] = hosts::AutoObject(doc);
    doc->answers["GetVariable"] = 1;
    app->onCall = [this](const std::string& m, std::vector<AutoValue>&) -> AutoValue {
      if (m != "GetAcadState") return {};
      auto state = std::make_shared<RecordingObject>(log, "state");
      state->answers["IsQuiescent"] = --busyPolls <= 0;
      return hosts::AutoObject(state);
    };
  }
};

TEST(AutoCadChannel, PlaysTheScriptWithFiledialogOffAndWaitsForQuiescence) {
  AutoCad acad;
  playAutoCadScript(*acad.app, "/p/tmpinput.scr");
  EXPECT_EQ(acad.log,
            (std::vector<std::string>{"docs.Add(acad)", "acad.Visible=True",
                                      "doc.GetVariable(FILEDIA)", "doc.SetVariable(FILEDIA,0)",
                                      "doc.SendCommand(_script\r/p/tmpinput.scr\r)",
                                      "acad.GetAcadState()", "acad.GetAcadState()",
                                      "acad.GetAcadState()", "doc.SetVariable(FILEDIA,1)"}));
}

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
  std::vector<std::string> attached;
  test::RecordingSystem sys{attached};
  AutoCad acad;
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

struct ChannelRun : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
  std::vector<std::string> attached;
  test::RecordingSystem sys{attached};
  AutoCad acad;
};

TEST_F(ChannelRun, ScriptBlocksArePlayedThroughTheChosenAutoCad) {
  sys.processes["acad.exe"] = {"\"C:\\A\\acad.exe\""};
  sys.versions["C:\\A\\acad.exe"] = "18.0";
  sys.running["AutoCAD.Application"] = acad.app;
  c.ctx.players = makeCadPlayers(sys);
  project.write("a.ipf", "crea,a\r\nscript\r\n_circle 0,0 5\r\nendscript\r\ncrea,b\r\n");
  ASSERT_TRUE(c.compile("a.ipf")) << c.stopMessage();
  EXPECT_NE(std::find(acad.log.begin(), acad.log.end(),
                      "doc.SendCommand(_script\r" + project.path("tmpinput.scr") + "\r)"),
            acad.log.end());
  EXPECT_EQ(project.read("tmpinput.scr"), "");  // begun afresh after playing
  EXPECT_EQ(c.lines,
            (std::vector<std::string>{"crea,a", "   Continued in an AutoCAD script", "crea,b"}));
}

TEST_F(ChannelRun, KeyinsGoToMicroStationAndItsAbsenceIsAFailure) {
  std::vector<std::string> log;
  auto ustation = std::make_shared<RecordingObject>(log, "ustn");
  auto queue = std::make_shared<RecordingObject>(log, "queue");
  ustation->answers["CadInputQueue"] = hosts::AutoObject(queue);
  c.ctx.players = makeCadPlayers(sys);
  project.write("a.ipf", "key-in\r\nplace line\r\nendkey-in\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.failure(), "MicroStation is not running");
  sys.running["MicroStationDGN.Application"] = ustation;
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(log,
            (std::vector<std::string>{"queue.SendCommand(@" + project.path("tmpinput.key") + ")"}));
}

TEST_F(ChannelRun, KeepScriptsKeepsNumberedCopiesAndGoesOnWithoutCad) {
  c.ctx.players = makeCadPlayers(sys, CadOptions{true});
  project.write("a.ipf",
                "script\r\n_line\r\nendscript\r\nkey-in\r\nk1\r\nendkey-in\r\n"
                "script\r\n_arc\r\nendscript\r\ncrea,done\r\n");
  ASSERT_TRUE(c.compile("a.ipf")) << c.stopMessage();
  EXPECT_EQ(project.read("script001.scr"), "_line\r\n");
  EXPECT_EQ(project.read("keyin002.key"), "k1\r\n");
  EXPECT_EQ(project.read("script003.scr"), "_arc\r\n");
  EXPECT_EQ(c.lines.back(), "crea,done");
}

// The AutoCAD getters reach AutoCAD through the run environment's lookup.
TEST_F(ChannelRun, GetacadvarAndGetlispvarAskTheActiveDocument) {
  sys.processes["acad.exe"] = {"\"C:\\A\\acad.exe\""};
  sys.versions["C:\\A\\acad.exe"] = "18.0";
  sys.running["AutoCAD.Application"] = acad.app;
  c.ctx.autocad = autoCadFinder(sys);
  acad.doc->onCall = [](const std::string& m, std::vector<AutoValue>& args) -> AutoValue {
    if (m != "GetVariable") return {};
    if (args[0].text() == "USERS5") return "3";
    if (args[0].text() == "REFUSED") throw hosts::AutomationError("refused");
    return 2.5;
  };
  project.write("a.ipf",
                "#v=getacadvar(LTSCALE)\r\n#l=getlispvar(\"(+ 1 2)\")\r\n"
                "#r=getacadvar(REFUSED)\r\n");
  ASSERT_TRUE(c.compile("a.ipf")) << c.stopMessage();
  EXPECT_EQ(c.var("v"), "2.5");
  EXPECT_EQ(c.var("l"), "3");
  EXPECT_EQ(c.var("r"), "");  // a refused call leaves the value empty
  EXPECT_EQ(acad.log, (std::vector<std::string>{
                          "doc.GetVariable(LTSCALE)",
                          "doc.SendCommand((vl-load-com)(setvar \"USERS5\" (vlax-variant-value "
                          "(vlax-make-variant (+ 1 2) vlax-vbString)))\r)",
                          "doc.GetVariable(USERS5)", "doc.GetVariable(REFUSED)"}));

  acad.app->answers["ActiveDocument"] = AutoValue();  // AutoCAD without a document
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.var("v"), "");
}

TEST_F(ChannelRun, TheAutoCadGettersWithoutAutoCadStopTheRun) {
  project.write("a.ipf", "crea,a\r\n#v=getlispvar(x)\r\ncrea,never\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));  // no AutoCAD on this machine at all
  EXPECT_EQ(c.stopMessage(), kNoAutoCad);
  c.ctx.autocad = autoCadFinder(sys);  // AutoCAD installed but not running
  project.write("a.ipf", "#v=getacadvar(FILEDIA)\r\ncrea,never\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.stopMessage(), kNoAutoCad);
  EXPECT_EQ(std::count(c.lines.begin(), c.lines.end(), "crea,never"), 0);
}

}  // namespace
