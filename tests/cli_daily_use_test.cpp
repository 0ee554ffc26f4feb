// The command line as engineers use it every day: the project folder found
// from the entries, the same engine for compile and run, the language chosen
// on the command line, help, version, presets, sections, input files in
// UTF-8, accented folder names and the summary of the files a run wrote.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "support/cli.h"

namespace korvane::test {
namespace {

using DailyUse = CliProject;

TEST_F(DailyUse, TheProjectIsTheFolderAboveInputs) {
  project.write("inputs/a.ipf", "crea,A\n");
  EXPECT_EQ(run("run a.ipf", "inputs"), 0) << err("inputs");
  EXPECT_TRUE(project.exists("tmpinput.txt"));
  EXPECT_TRUE(project.exists("korvane-models.db"));
  EXPECT_FALSE(project.exists("inputs/tmpinput.txt"));
  EXPECT_FALSE(project.exists("inputs/korvane-models.db"));
  // From anywhere, the entry's folder decides.
  project.write("elsewhere/keep.txt", "x");
  EXPECT_EQ(run("run ../inputs/a.ipf", "elsewhere"), 0);
  EXPECT_FALSE(project.exists("elsewhere/korvane-models.db"));
}

TEST_F(DailyUse, NoModelStoreOutsideAProjectAndAClearMessageForAMissingOne) {
  project.write("loose/a.ipf", "crea,A\n");
  EXPECT_EQ(run("run a.ipf --lang en", "loose"), 2);
  EXPECT_EQ(err("loose"), project.path("loose") +
                              " is not a project folder: it has no inputs folder and no "
                              "korvane-models.db\nName the project folder with --project DIR, or "
                              "make an inputs folder in it\n");
  EXPECT_FALSE(project.exists("loose/korvane-models.db"));
  EXPECT_FALSE(project.exists("loose/tmpinput.txt"));
  // Named with --project, the folder is taken as it is.
  EXPECT_EQ(run("run a.ipf --project .", "loose"), 0) << err("loose");
  EXPECT_TRUE(project.exists("loose/korvane-models.db"));
  EXPECT_EQ(run("run a.ipf --project nowhere --lang en"), 2);
  EXPECT_EQ(err(), "The project folder " + project.path("nowhere") + " does not exist\n");
}

TEST_F(DailyUse, CompileAsksTheSameEngineAsRunUnlessToldNone) {
  project.write("make.ipf", "crea,M\n");
  project.write("ask.ipf", "if exist(M) then x=yes else x=no\ncrea,|x|\n");
  ASSERT_EQ(run("run make.ipf"), 0) << err();
  EXPECT_EQ(run("compile ask.ipf"), 0) << err();
  EXPECT_EQ(out(), "crea,yes\r\n");
  EXPECT_EQ(run("compile ask.ipf --engine none"), 0) << err();
  EXPECT_EQ(out(), "crea,no\r\n");
}

TEST_F(DailyUse, LanguageChosenOnTheCommandLineOrInTheEnvironment) {
  EXPECT_EQ(run("run a.ipf --project nowhere --lang hu"), 2);
  EXPECT_EQ(err(), asShown("A projekt mappa nem l\xE9tezik: " + project.path("nowhere")) + "\n");
  EXPECT_EQ(runKorvane(project.folder(), "compile --home '" + home + "'", "KORVANE_LANG=en"), 2);
  EXPECT_EQ(err(), "korvane: ENTRY is missing\nSee: korvane help [COMMAND]\n");
  EXPECT_EQ(run("compile --lang hu"), 2);
  EXPECT_EQ(err(),
            asShown("korvane: Hi\xE1nyzik: ENTRY\nSeg\xEDts\xE9g: korvane help [PARANCS]\n"));
}

TEST_F(DailyUse, HelpVersionAndMistypedCommands) {
  EXPECT_EQ(run("--version"), 0);
  EXPECT_EQ(out().rfind("korvane ", 0), 0u);
  EXPECT_EQ(run("help run --lang en"), 0);
  EXPECT_NE(out().find("Compile entries and run them through MX"), std::string::npos) << out();
  EXPECT_NE(out().find("--save-one"), std::string::npos);
  EXPECT_EQ(run("help nothing --lang en"), 2);
  EXPECT_NE(err().find("There is no command nothing"), std::string::npos) << err();
  EXPECT_EQ(run("model list --lang en"), 2);
  EXPECT_NE(err().find("Did you mean models?"), std::string::npos) << err();
  EXPECT_FALSE(project.exists("tmpinput.txt"));
}

TEST_F(DailyUse, PresetsAreSetBeforeEachEntryAndSectionsAreListed) {
  project.write("a.ipf", "crea,|w||g_n|\n#g_n=|g_n|+1\n");
  EXPECT_EQ(run("compile a.ipf a.ipf -D w=W -D g_n=1"), 0) << err();
  EXPECT_EQ(out(), "crea,W1\r\ncrea,W2\r\n");  // g_n carries on
  EXPECT_EQ(run("compile a.ipf -D =5 --lang en"), 2);
  EXPECT_EQ(err(), "-D takes NAME=VALUE, not =5\n");
  project.write("s.ipf", "crea,a\n[main]\ncrea,b\n[trim] ignored\n");
  EXPECT_EQ(run("sections s.ipf"), 0);
  EXPECT_EQ(out(), "main\ntrim\n");
}

TEST_F(DailyUse, AUtf8FileWithoutAMarkIsReadAsUtf8AndOutputsStayWindows1250) {
  project.write("u.ipf", "crea,\xC5\x90SZI \xC3\x9CTEM\n");  // "ŐSZI ÜTEM" in UTF-8
  project.write("w.ipf", "crea,\xD5SZI\n");                  // "ŐSZI" in Windows-1250
  EXPECT_EQ(run("compile u.ipf w.ipf"), 0) << err();
  EXPECT_EQ(out(), "crea,\xD5SZI \xDCTEM\r\ncrea,\xD5SZI\r\n");
  EXPECT_EQ(project.read("tmpinput.txt").find("\xC5\x90"), std::string::npos);
  ASSERT_EQ(run("run u.ipf"), 0) << err();
  ASSERT_EQ(run("models delete '\xC5\x90SZI \xC3\x9CTEM'"), 0) << err();  // by its name as typed
}

// Hungarian engineers name folders "Útépítés": a project folder and input
// files with accented names work on every path that touches the disk.
TEST_F(DailyUse, RunAndModelsWorkInAnAccentedProjectFolder) {
  namespace stdfs = std::filesystem;
  // "Útépítés" and "főút.ipf" in the users' code page; "ő" is not in Latin-1.
  const std::string folder = project.path("\xDAt\xE9p\xEDt\xE9s");
  const std::string entry = fs::join(fs::join(folder, "inputs"), "f\xF5\xFAt.ipf");
  const stdfs::path root = fs::native(folder);
  stdfs::create_directories(root / "inputs");
  std::ofstream(fs::native(entry), std::ios::binary) << "crea,ROAD\r\n";
  const std::string where = " --project '" + asShown(folder) + "'";

  EXPECT_EQ(run("run '" + asShown(entry) + "'" + where), 0) << err();
  EXPECT_TRUE(stdfs::exists(root / "korvane-models.db"));
  EXPECT_TRUE(stdfs::exists(root / "tmpinput.txt"));
  EXPECT_EQ(run("models list" + where), 0) << err();
  EXPECT_NE(out().find("ROAD"), std::string::npos);
  // Nothing was made under a mangled name beside it.
  int entries = 0;
  for (const auto& e : stdfs::directory_iterator(fs::native(project.folder())))
    entries += e.is_directory();
  EXPECT_EQ(entries, 2);  // the accented folder and the fixture's inputs folder
}

// The files the summary of the last run lists. The shell's redirections of
// the run's own output lie in the project folder too; the run did not write them.
std::string filesWritten(const std::string& out) {
  const std::string head = "Files written: ";
  const std::size_t at = out.find(head);
  if (at == std::string::npos) return "<no summary> " + out;
  return out.substr(at + head.size(), out.find('\n', at) - at - head.size());
}

TEST_F(DailyUse, TheSummaryListsOnlyFilesTheRunWrote) {
  project.write("a.ipf", "crea,A\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  const std::string files = filesWritten(out());
  EXPECT_NE(files.find("tmpinput.txt"), std::string::npos) << files;
  EXPECT_EQ(files.find("out.txt"), std::string::npos) << files;
  EXPECT_EQ(files.find("err.txt"), std::string::npos) << files;
#ifdef KORVANE_WORKBOOK_FILES
  // Where no Excel runs, xlput saves the workbook itself, in the excel folder.
  std::filesystem::create_directories(project.path("excel"));
  std::filesystem::copy_file(sourceDir() + "/examples/road/excel/design.xlsx",
                             project.path("excel/design.xlsx"));
  project.write("a.ipf", "#v=xlget(design.xlsx,B2,Design)\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  EXPECT_EQ(filesWritten(out()).find("design.xlsx"), std::string::npos) << out();  // only read
  project.write("a.ipf", "xlput,design.xlsx,Results,2,2,100\n");
  ASSERT_EQ(run("run a.ipf --lang en"), 0) << err();
  const std::string workbook = std::string("excel") + fs::kSep + "design.xlsx";
  EXPECT_NE(filesWritten(out()).find(workbook), std::string::npos) << out();
#endif
}

}  // namespace
}  // namespace korvane::test
