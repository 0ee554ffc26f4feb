// The command line as engineers use it every day: the project folder found
// from the entries, the same engine for compile and run, the language chosen
// on the command line, help, version, presets and sections.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/messages.h"
#include "support/cli.h"

using namespace korvane;

namespace {

struct DailyUse : test::CliProject {
  Messages en{home + "/English.lng"}, hu{home + "/Hungarian.lng"};
  // Runs korvane in a folder of the project (relative), with the shipped files.
  int runIn(const std::string& folder, const std::string& args) {
    return test::runKorvane(project.path(folder), args + " --home '" + home + "'");
  }
  std::string shown(const std::string& cp1250) { return test::asShown(cp1250); }
};

TEST_F(DailyUse, TheProjectIsTheFolderAboveInputs) {
  project.write("inputs/a.ipf", "crea,A\n");
  EXPECT_EQ(runIn("inputs", "run a.ipf"), 0) << project.read("inputs/err.txt");
  EXPECT_TRUE(project.exists("tmpinput.txt"));
  EXPECT_TRUE(project.exists("korvane-models.db"));
  EXPECT_FALSE(project.exists("inputs/tmpinput.txt"));
  EXPECT_FALSE(project.exists("inputs/korvane-models.db"));
  // From anywhere, the entry's folder decides.
  project.write("elsewhere/keep.txt", "x");
  EXPECT_EQ(runIn("elsewhere", "run ../inputs/a.ipf"), 0);
  EXPECT_FALSE(project.exists("elsewhere/korvane-models.db"));
}

TEST_F(DailyUse, NoModelStoreOutsideAProjectAndAClearMessageForAMissingOne) {
  project.write("loose/a.ipf", "crea,A\n");
  EXPECT_EQ(runIn("loose", "run a.ipf --lang en"), 2);
  EXPECT_EQ(test::errorText(project.read("loose/err.txt")),
            en.format({"Cli", "not_project"}, project.path("loose")) + "\n" +
                en.text({"Cli", "choose_project"}) + "\n");
  EXPECT_FALSE(project.exists("loose/korvane-models.db"));
  EXPECT_FALSE(project.exists("loose/tmpinput.txt"));
  // Named with --project, the folder is taken as it is.
  EXPECT_EQ(runIn("loose", "run a.ipf --project ."), 0) << project.read("loose/err.txt");
  EXPECT_TRUE(project.exists("loose/korvane-models.db"));
  EXPECT_EQ(run("run a.ipf --project nowhere --lang en"), 2);
  EXPECT_EQ(err(), en.format({"Cli", "no_project"}, project.path("nowhere")) + "\n");
}

TEST_F(DailyUse, CompileAsksTheSameEngineAsRunUnlessToldNone) {
  project.write("make.ipf", "crea,M\n");
  project.write("ask.ipf", "if exist(M) then x=yes else x=no\ncrea,|x|\n");
  ASSERT_EQ(run("run make.ipf"), 0) << err();
  EXPECT_EQ(run("compile ask.ipf"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,yes\r\n");
  EXPECT_EQ(run("compile ask.ipf --engine none"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,no\r\n");
}

TEST_F(DailyUse, LanguageChosenOnTheCommandLineOrInTheEnvironment) {
  EXPECT_EQ(run("run a.ipf --project nowhere --lang hu"), 2);
  EXPECT_EQ(err(), shown(hu.format({"Cli", "no_project"}, project.path("nowhere"))) + "\n");
  EXPECT_EQ(test::runKorvane(project.folder(), "compile --home '" + home + "'", "KORVANE_LANG=en"),
            2);
  EXPECT_EQ(err(), "korvane: " + en.format({"Cli", "arg_required"}, "ENTRY") + "\n" +
                       en.text({"Cli", "arg_hint"}) + "\n");
  EXPECT_EQ(run("compile --lang hu"), 2);
  EXPECT_EQ(err(), "korvane: " + shown(hu.format({"Cli", "arg_required"}, "ENTRY")) + "\n" +
                       shown(hu.text({"Cli", "arg_hint"})) + "\n");
}

TEST_F(DailyUse, HelpVersionAndMistypedCommands) {
  EXPECT_EQ(run("--version"), 0);
  EXPECT_EQ(project.read("out.txt").rfind("korvane ", 0), 0u);
  EXPECT_EQ(run("help run --lang en"), 0);
  EXPECT_NE(project.read("out.txt").find(en.text({"Cli", "h_run"})), std::string::npos);
  EXPECT_NE(project.read("out.txt").find("--save-one"), std::string::npos);
  EXPECT_EQ(run("help nothing --lang en"), 2);
  EXPECT_NE(err().find(en.format({"Cli", "arg_nocommand"}, "nothing")), std::string::npos);
  EXPECT_EQ(run("model list --lang en"), 2);
  EXPECT_NE(err().find(en.format({"Cli", "did_you_mean"}, "models")), std::string::npos) << err();
  EXPECT_FALSE(project.exists("tmpinput.txt"));
}

TEST_F(DailyUse, PresetsAreSetBeforeEachEntryAndSectionsAreListed) {
  project.write("a.ipf", "crea,|w||g_n|\n#g_n=|g_n|+1\n");
  EXPECT_EQ(run("compile a.ipf a.ipf -D w=W -D g_n=1"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,W1\r\ncrea,W2\r\n");  // g_n carries on
  EXPECT_EQ(run("compile a.ipf -D =5 --lang en"), 2);
  EXPECT_EQ(err(), en.format({"Cli", "bad_preset"}, "=5") + "\n");
  project.write("s.ipf", "crea,a\n[main]\ncrea,b\n[trim] ignored\n");
  EXPECT_EQ(run("sections s.ipf"), 0);
  EXPECT_EQ(project.read("out.txt"), "main\ntrim\n");
}

}  // namespace

namespace {

TEST_F(DailyUse, AUtf8FileWithoutAMarkIsReadAsUtf8AndOutputsStayWindows1250) {
  project.write("u.ipf", "crea,\xC5\x90SZI \xC3\x9CTEM\n");  // "ŐSZI ÜTEM" in UTF-8
  project.write("w.ipf", "crea,\xD5SZI\n");                  // "ŐSZI" in Windows-1250
  EXPECT_EQ(run("compile u.ipf w.ipf"), 0) << err();
  EXPECT_EQ(project.read("out.txt"), "crea,\xD5SZI \xDCTEM\r\ncrea,\xD5SZI\r\n");
  EXPECT_EQ(project.read("tmpinput.txt").find("\xC5\x90"), std::string::npos);
  ASSERT_EQ(run("run u.ipf"), 0) << err();
  ASSERT_EQ(run("models delete '\xC5\x90SZI \xC3\x9CTEM'"), 0) << err();  // by its name as typed
}

}  // namespace

namespace {

// The shell's redirections of the run's own output lie in the project folder
// too; the run did not write them.
struct RunSummary : DailyUse {
  // The files the summary of the last run lists.
  std::string written() {
    const std::string out = project.read("out.txt");
    const std::string head = en.format({"Cli", "summary_files"}, "");
    const std::size_t at = out.find(head);
    if (at == std::string::npos) return "<no summary> " + out;
    return out.substr(at + head.size(), out.find('\n', at) - at - head.size());
  }
};

TEST_F(RunSummary, ListsOnlyFilesTheRunWrote) {
  project.write("a.ipf", "crea,A\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  const std::string files = written();
  EXPECT_NE(files.find("tmpinput.txt"), std::string::npos) << files;
  EXPECT_EQ(files.find("out.txt"), std::string::npos) << files;
  EXPECT_EQ(files.find("err.txt"), std::string::npos) << files;
}

#ifdef KORVANE_WORKBOOK_FILES
// Where no Excel runs, xlput saves the workbook itself, in the excel folder.
TEST_F(RunSummary, ListsAWorkbookThatXlputWrote) {
  std::filesystem::create_directories(project.path("excel"));
  std::filesystem::copy_file(test::sourceDir() + "/examples/road/excel/design.xlsx",
                             project.path("excel/design.xlsx"));
  project.write("a.ipf", "#v=xlget(design.xlsx,B2,Design)\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  EXPECT_EQ(written().find("design.xlsx"), std::string::npos) << written();  // only read
  project.write("a.ipf", "xlput,design.xlsx,Results,2,2,100\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  const std::string workbook = std::string("excel") + fs::kSep + "design.xlsx";
  EXPECT_NE(written().find(workbook), std::string::npos) << written();
}
#endif

}  // namespace
