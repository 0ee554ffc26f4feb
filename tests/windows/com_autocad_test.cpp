// Choosing and driving AutoCAD and MicroStation over COM, against the fake
// server standing as running AutoCAD 17.1 and 18.0 and a running MicroStation.
// Wine's WMI gives no command line of another process, so the acad.exe
// processes and their file versions are injected; attaching goes through the
// Running Object Table.
#include <gtest/gtest.h>

#include <map>

#include "compiler/extension/compile_failure.h"
#include "hosts/automation/windows/com_system.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "support/project.h"
#include "windows/fake_servers.h"

namespace korvane::test {

namespace {

// The real COM system with the running processes and file versions made up.
struct InjectedProcesses : hosts::AutomationSystem {
  hosts::AutomationSystem& com;
  std::vector<std::string> acad;
  std::map<std::string, std::string> versions;
  explicit InjectedProcesses(hosts::AutomationSystem& c) : com(c) {}

  std::vector<std::string> processCommandLines(const std::string& exe) override {
    return exe == "acad.exe" ? acad : std::vector<std::string>{};
  }
  hosts::AutoObject runningObject(const std::string& progId) override {
    return com.runningObject(progId);
  }
  std::string fileVersion(const std::string& path) override { return versions[path]; }
  std::vector<std::string> registrySubkeys(const std::string&) override { return {}; }
};

struct ComAutoCad : ::testing::Test {
  std::unique_ptr<hosts::AutomationSystem> com = hosts::windows::makeComAutomationSystem();
  RunningFakes fakes{
      *com,
      {"AutoCAD.Application.17.1", "AutoCAD.Application.18.0", "MicroStationDGN.Application"}};
  InjectedProcesses system{*com};
  Evaluator ev;

  void SetUp() override { ASSERT_TRUE(fakes.ready()); }

  void running(std::initializer_list<const char*> releases) {
    for (const char* r : releases) {
      const std::string exe = std::string("C:\\Program Files\\AutoCAD ") + r + "\\acad.exe";
      system.acad.push_back("\"" + exe + "\" /nologo");
      system.versions[exe] = r;
    }
  }
  // The release of the AutoCAD the lookup attached, or the stop message.
  std::string attached() {
    try {
      return lookUpAutoCad(ev.ctx, system)->get("Version").text();
    } catch (const CompileFailure& f) {
      return std::string(f.key().key) + ":" + f.arg1();
    }
  }
};

TEST_F(ComAutoCad, TheLookupAttachesTheReleaseThatTheWantedOneChooses) {
  running({"17.1", "18.0"});
  EXPECT_EQ(attached(), "18.0");  // g_acadver undefined: the latest
  ev.ctx.vars.set("g_acadver", "OLDEST");
  EXPECT_EQ(attached(), "17.1");
  ev.ctx.vars.set("g_acadver", "2008");  // entry 4 of the release list: 17.1
  EXPECT_EQ(attached(), "17.1");
}

TEST_F(ComAutoCad, OneProcessIsAttachedByTheReleaseIndependentName) {
  running({"18.0"});
  ev.ctx.vars.set("g_acadver", "OLDEST");
  EXPECT_EQ(attached(), "18.0");  // "AutoCAD.Application" names the last release installed
}

TEST_F(ComAutoCad, AReleaseThatRunsButIsNotRegisteredStopsWithS17AndNoneWithS15) {
  running({"17.0", "18.0"});  // no 17.0 in the Running Object Table
  ev.ctx.vars.set("g_acadver", "2007");
  EXPECT_EQ(attached(), "s17:17.0");
  ev.ctx.vars.set("g_acadver", "2012");
  EXPECT_EQ(attached(), "s15:2012 ");
  system.acad.clear();
  EXPECT_EQ(attached(), "s15:");
}

TEST_F(ComAutoCad, TheScriptChannelSetsFiledialSendsTheScriptWaitsAndRestores) {
  auto acad = com->runningObject("AutoCAD.Application.18.0");
  resetFake(*acad);
  playAutoCadScript(*acad, "C:\\Projects\\Road\\tmpinput.scr");
  EXPECT_EQ(recordedCalls(*acad),
            (std::vector<std::string>{
                "acad.Documents", "docs.Count", "docs.Add(acad)", "acad.ActiveDocument",
                "acad.Visible=True", "doc.GetVariable(FILEDIA)", "doc.SetVariable(FILEDIA,0)",
                "doc.SendCommand(_script\rC:\\Projects\\Road\\tmpinput.scr\r)", "acad.GetAcadState",
                "state.IsQuiescent", "acad.GetAcadState", "state.IsQuiescent", "acad.GetAcadState",
                "state.IsQuiescent", "acad.GetAcadState", "state.IsQuiescent",
                "acad.ActiveDocument", "doc.SetVariable(FILEDIA,1)"}));
  // A second script finds the document open.
  resetFake(*acad);
  acad->call("FakeRaise", {"SendCommand", "Command refused"});
  playAutoCadScript(*acad, "C:\\p\\tmpinput.scr");  // AutoCAD's errors are ignored
  auto calls = recordedCalls(*acad);
  ASSERT_GE(calls.size(), 3u);
  EXPECT_EQ(calls[1], "docs.Count");
  EXPECT_NE(calls[2], "docs.Add(acad)");
  EXPECT_EQ(calls.back(), "doc.SetVariable(FILEDIA,1)");  // restored all the same
}

TEST_F(ComAutoCad, TheKeyinChannelQueuesTheFileInMicroStation) {
  auto ustation = com->runningObject("MicroStationDGN.Application");
  resetFake(*ustation);
  playMicroStationKeyins(*ustation, "C:\\p\\tmpinput.key");
  EXPECT_EQ(recordedCalls(*ustation),
            (std::vector<std::string>{"ustation.CadInputQueue",
                                      "queue.SendCommand(@C:\\p\\tmpinput.key)"}));
}

}  // namespace
}  // namespace korvane::test
