// MX through its automation classes, against the fake MX of the test server
// (a model GROUND with the strings GR01 (0,0)-(3,4)-(6,8), broken after its
// second point, and GR02): settings, the project folder, runs of input
// files, model queries with arguments by reference, the model library, and a
// compile run through the driver.
#include <gtest/gtest.h>
#include <windows.h>  // before base/profile.h, which undoes its WriteProfileString

#include "base/fs.h"
#include "base/profile.h"
#include "hosts/automation/windows/com_system.h"
#include "hosts/mx/windows/mx_engine.h"
#include "shell/driver.h"
#include "shell/engine_choice.h"
#include "support/project.h"
#include "windows/fake_servers.h"

using namespace korvane;

namespace {

// Korvane's member names, with the classes of the fake MX, as Korvane.ini
// would name them.
hosts::windows::MxNames fakeMx() {
  hosts::windows::MxNames n;
  n.configurationClass = "KorvaneFake.MxConfiguration";
  n.projectClass = "KorvaneFake.MxProject";
  n.dataAccessClass = "KorvaneFake.MxDataAccess";
  n.libraryClass = "KorvaneFake.MxLibrary";
  return n;
}

// COM with MX's engine process injected: Wine's WMI gives no command line of
// another process.
class WithMxEngineRunning final : public hosts::AutomationSystem {
 public:
  explicit WithMxEngineRunning(std::string commandLine)
      : com_(hosts::windows::makeComAutomationSystem()), line_(std::move(commandLine)) {}
  std::vector<std::string> processCommandLines(const std::string& exe) override {
    if (exe != "mosseng.exe") return {};
    return {"\"C:\\MX\\mosseng.exe\" /batch", line_};
  }
  hosts::AutoObject runningObject(const std::string& p) override { return com_->runningObject(p); }
  std::string fileVersion(const std::string& p) override { return com_->fileVersion(p); }
  std::vector<std::string> registrySubkeys(const std::string& k) override {
    return com_->registrySubkeys(k);
  }
  hosts::AutoObject createObject(const std::string& p) override { return com_->createObject(p); }

 private:
  std::unique_ptr<hosts::AutomationSystem> com_;
  std::string line_;
};

struct ComMx : ::testing::Test {
  test::TempProject project;
  std::unique_ptr<hosts::MxEngine> mx;
  hosts::AutoObject config;  // the same server's record of calls

  void SetUp() override {
    std::string error;
    mx = hosts::windows::makeMxEngine(hosts::windows::makeComAutomationSystem(), fakeMx(), error);
    ASSERT_TRUE(mx) << error;
    auto com = hosts::windows::makeComAutomationSystem();
    config = com->createObject(fakeMx().configurationClass);
    test::resetFake(*config);
  }
  void TearDown() override { test::quitFake(config); }
  void runInput(const std::string& text) {
    mx->configuration().run("input", project.write("in.txt", text));
  }
};

TEST_F(ComMx, SettingsAndTheProjectFolderComeFromMxsServices) {
  EXPECT_EQ(mx->configuration().setting("PrivateMacros"), "C:\\MX\\PrivateMacros");
  EXPECT_EQ(mx->project().currentFolder(), "C:\\Projects\\Road");
}

TEST_F(ComMx, TheProjectFileIsTheOneMxsEngineWasStartedWith) {
  std::string error;
  for (const auto& [line, file] : std::vector<std::pair<std::string, std::string>>{
           {"\"C:\\MX\\mosseng.exe\" \"C:\\Projects\\Road Works\\Main Road.MMD\" /x",
            "Main Road.MMD"},
           {"C:\\MX\\mosseng.exe C:\\Projects\\Road\\road.mmd", "road.mmd"},
           {"C:\\MX\\mosseng.exe /nomodel", ""}}) {
    auto engine =
        hosts::windows::makeMxEngine(std::make_unique<WithMxEngineRunning>(line), fakeMx(), error);
    ASSERT_TRUE(engine) << error;
    EXPECT_EQ(engine->project().projectFileName(), file) << line;
  }
  // MX's engine not running: no project file.
  EXPECT_EQ(mx->project().projectFileName(), "");
}

TEST_F(ComMx, ARunMakesAndRemovesModelsAndIsRecordedWithItsFile) {
  runInput("crea,SURVEY 2\r\n");
  EXPECT_TRUE(mx->configuration().modelExists("SURVEY 2"));
  runInput("dele,SURVEY 2\r\n");
  EXPECT_FALSE(mx->configuration().modelExists("SURVEY 2"));
  EXPECT_TRUE(mx->configuration().stringExists("GROUND", "GR01"));
  EXPECT_FALSE(mx->configuration().stringExists("GROUND", "GR09"));
  const std::string run = "mxconfig.Run(input," + project.path("in.txt") + ")";
  EXPECT_EQ(test::recordedCalls(*config),
            (std::vector<std::string>{
                run, "mxconfig.ModelExists(SURVEY 2)", run, "mxconfig.ModelExists(SURVEY 2)",
                "mxconfig.StringExists(GROUND,GR01)", "mxconfig.StringExists(GROUND,GR09)"}));
}

TEST_F(ComMx, QueriesAnswerThroughTheirReferenceArguments) {
  auto& data = mx->dataAccess();
  std::int32_t count = -1;
  EXPECT_EQ(data.stringInfo("GROUND", "GR01", count), 0);
  EXPECT_EQ(count, 3);
  EXPECT_NE(data.stringInfo("GROUND", "GR09", count), 0);

  hosts::PointRecord p;
  ASSERT_EQ(data.point("GROUND", "GR01", 2, p), 0);
  EXPECT_EQ(p.num[0], 3);
  EXPECT_EQ(p.num[1], 4);
  EXPECT_EQ(p.num[4], 5);  // the chainage: a 3-4-5 triangle
  EXPECT_EQ(p.txt[0], "GR01");
  ASSERT_EQ(data.point("GROUND", "GR01", 3, p), 0);
  EXPECT_EQ(p.num[4], 10);
  EXPECT_NE(data.point("GROUND", "GR01", 4, p), 0);

  std::string label;
  EXPECT_EQ(data.nextLabel("GROUND", "GR", label), 0);
  EXPECT_EQ(label, "GR03");
  EXPECT_EQ(data.labelCount("GROUND", "GR", count), 0);
  EXPECT_EQ(count, 2);
  std::string units;
  EXPECT_EQ(data.parameter("units", 1, units), 1);
  EXPECT_EQ(units, "metres");
}

TEST_F(ComMx, TheModelLibraryGivesStringsWithTheirPointData) {
  EXPECT_EQ(mx->library().model("NO SUCH MODEL"), nullptr);
  auto ground = mx->library().model("GROUND");
  ASSERT_TRUE(ground);
  EXPECT_EQ(ground->stringLabels(), (std::vector<std::string>{"GR01", "GR02"}));
  EXPECT_EQ(ground->string("GR09"), nullptr);
  auto gr01 = ground->string("GR01");
  ASSERT_TRUE(gr01);
  EXPECT_EQ(gr01->name(), "GR01");
  EXPECT_EQ(gr01->GetPointData(), (std::vector<double>{0, 0, 10, 3, 4, 10, 6, 8, 12}));
  auto points = gr01->points();
  ASSERT_EQ(points.size(), 3u);
  EXPECT_EQ(points[1].X, 3);
  EXPECT_EQ(points[1].Discontinuity, 1);
  EXPECT_EQ(points[2].Discontinuity, 0);
}

TEST_F(ComMx, ACompileRunThroughMxEndsWithTheSentinelGoneOrStopsWithS5) {
  test::Compiler c(project);
  c.ctx.engine = mx.get();
  project.write("road.ipf", "crea,ROAD\r\n");
  EXPECT_TRUE(c.compile("road.ipf")) << c.stopMessage();
  EXPECT_TRUE(mx->configuration().modelExists("ROAD"));
  EXPECT_FALSE(mx->configuration().modelExists("it is just a flag model"));

  project.write("stops.ipf", "fake,stop\r\ncrea,NEVER\r\n");  // MX stops at a line it refuses
  EXPECT_FALSE(c.compile("stops.ipf"));
  EXPECT_NE(c.stopMessage().find(c.ctx.messages.text({"Messages", "s5"})), std::string::npos)
      << c.stopMessage();
  EXPECT_FALSE(mx->configuration().modelExists("NEVER"));
  mx->configuration().run(
      "input", project.write("clean.txt", "dele,ROAD\r\ndele,it is just a flag model\r\n"));
}

TEST_F(ComMx, AnErrorMxRaisesEndsTheRunWithTheMemberAndMxsWords) {
  test::Compiler c(project);
  c.ctx.engine = mx.get();
  config->call("FakeRaise", {"ModelExists", "MX is busy with another project"});
  project.write("road.ipf", "crea,ROAD2\r\n");
  EXPECT_FALSE(c.compile("road.ipf"));
  EXPECT_NE(c.stopMessage().find("ModelExists"), std::string::npos) << c.stopMessage();
  EXPECT_NE(c.stopMessage().find("MX is busy with another project"), std::string::npos)
      << c.stopMessage();
}

TEST_F(ComMx, TheCommandLineRunsThroughTheMxThatKorvaneIniNamesInMxsProject) {
  test::TempProject home;
  for (const char* f : {"Korvane.ini", "Hungarian.lng", "English.lng"})
    home.write(f, *fs::readFile(test::sourceDir() + "/data/" + f));
  const std::string ini = home.path("Korvane.ini");
  // MX's default class names are not registered here: the embedded engine is
  // the default until Korvane.ini names the classes that are.
  EXPECT_EQ(defaultEngineKind(ini), EngineKind::Embedded);
  const auto names = fakeMx();
  WriteProfileString("MX", "ConfigurationClass", names.configurationClass, ini);
  WriteProfileString("MX", "ProjectClass", names.projectClass, ini);
  EXPECT_EQ(defaultEngineKind(ini), EngineKind::Mx);

  // MX has another folder as its current project: the run goes there.
  test::TempProject mxProject;
  hosts::windows::makeComAutomationSystem()
      ->createObject(names.projectClass)
      ->set("ProjectFolder", mxProject.folder());
  project.write("road.ipf", "crea,FROM CLI\r\n");
  const std::string withHome = " --home '" + home.folder() + "'";
  EXPECT_EQ(test::runKorvane(project.folder(), "run road.ipf" + withHome), 0)
      << project.read("err.txt");
  EXPECT_TRUE(mx->configuration().modelExists("FROM CLI"));
  EXPECT_TRUE(mxProject.exists("tmpinput.txt"));
  EXPECT_FALSE(project.exists("tmpinput.txt"));
  EXPECT_FALSE(project.exists("korvane-models.db"));
  runInput("dele,FROM CLI\r\n");

  // A project folder named on the command line that is not MX's is refused.
  EXPECT_EQ(test::runKorvane(project.folder(), "run road.ipf --engine mx --project '" +
                                                   project.folder() + "'" + withHome),
            2);
  EXPECT_NE(project.read("err.txt").find(mxProject.folder()), std::string::npos)
      << project.read("err.txt");
  EXPECT_FALSE(mx->configuration().modelExists("FROM CLI"));

  // With MX's default class names, which are not registered here: a clear refusal.
  EXPECT_EQ(test::runKorvane(project.folder(),
                             "run road.ipf --engine mx --home '" + test::sourceDir() + "/data'"),
            1);
  EXPECT_NE(project.read("err.txt").find("{587184BE-89FC-11D2-9CA5-00104B4B1633}"),
            std::string::npos)
      << project.read("err.txt");
}

}  // namespace
