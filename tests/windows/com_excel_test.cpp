// Excel over COM, against the fake server standing as a running Excel: a cell
// read by xlget, a formula put by xlput and left unsaved, and ditch_list's
// macro call with the result text and chainages that come back by reference.
// Wine cannot bind a file name to the fake's workbook, so the workbook of a
// path is the one the running Excel has open under that file name, as Excel
// itself would answer for an open book.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/fs.h"
#include "hosts/automation/windows/com_system.h"
#include "support/excel_project.h"
#include "windows/fake_servers.h"

namespace korvane::test {

using hosts::AutoObject;
using hosts::AutoValue;
using Lines = std::vector<std::string>;

namespace {

struct OpenBooks : hosts::AutomationSystem {
  hosts::AutomationSystem& com;
  explicit OpenBooks(hosts::AutomationSystem& c) : com(c) {}

  std::vector<std::string> processCommandLines(const std::string& exe) override {
    return exe == "excel.exe" ? Lines{"EXCEL.EXE"} : Lines{};
  }
  AutoObject runningObject(const std::string& progId) override { return com.runningObject(progId); }
  AutoObject fileObject(const std::string& path) override {
    AutoObject books = com.runningObject("Excel.Application")->get("Workbooks").object();
    return books->call("Item", {path.substr(path.find_last_of('\\') + 1)}).object();
  }
  std::string fileVersion(const std::string&) override { return {}; }
  std::vector<std::string> registrySubkeys(const std::string&) override { return {}; }
};

struct ComExcel : ExcelProject {
  std::unique_ptr<hosts::AutomationSystem> com = hosts::windows::makeComAutomationSystem();
  RunningFakes fakes{*com, {"Excel.Application"}};
  OpenBooks system{*com};
  AutoObject app;

  ComExcel() : ExcelProject(EngineChoice::Embedded) { use(hosts::makeAutomationExcel(system)); }
  ~ComExcel() override { use(nullptr); }  // the host lets go of Excel before COM goes
  void SetUp() override {
    ASSERT_TRUE(fakes.ready());
    app = com->runningObject("Excel.Application");
  }
  // A workbook in the project's excel folder, open in the running Excel.
  AutoObject openBook(const std::string& name) {
    project.write("excel/" + name, "");
    const std::string path = project.path("excel") + fs::kSep + name;
    return app->get("Workbooks").object()->call("Open", {path}).object();
  }
  static AutoObject cell(const AutoObject& book, const std::string& sheet, const std::string& at) {
    AutoObject sheets = book->get("Worksheets").object();
    return sheets->call("Item", {sheet}).object()->call("Range", {at}).object();
  }
};

TEST_F(ComExcel, XlgetReadsTheValueAndXlputPutsTheFormulaWithoutSaving) {
  AutoObject book = openBook("data.xlsx");
  cell(book, "Sheet1", "B2")->set("Value", 12.5);
  cell(book, "Sheet2", "B2")->set("Value", "other sheet");
  resetFake(*app);
  ASSERT_TRUE(compile("#v=xlget(data.xlsx,$b$2)\r\nxlput,data.xlsx,Sheet2,4,3,\"=B2*2\"\r\n"))
      << failure();
  const Lines calls = recordedCalls(*app);
  EXPECT_EQ(c.var("v"), "12.5");  // the first sheet's B2
  EXPECT_EQ(cell(book, "Sheet2", "C4")->get("FormulaLocal").text(), "=B2*2");
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "range.FormulaLocal==B2*2"), 1);
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "sheet.Cells(4,3)"), 1);
  for (const std::string& call : calls) EXPECT_EQ(call.find("Save"), std::string::npos) << call;
}

TEST_F(ComExcel, DitchListRunsTheMacroAndWritesItsResultTextBackIntoTheOutput) {
  openBook("ditch.xls");
  const std::string path = project.path("excel") + fs::kSep + "ditch.xls";
  resetFake(*app);
  ASSERT_TRUE(
      compile(std::string(kDitchModel) + "ditch_list,T\r\nbasexls=ditch,mast=S1,\xE1xe=9\r\n"))
      << failure();
  const Lines calls = recordedCalls(*app);
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back(), "excel.Run(Tabulon.xla!Ditch.ConvertListToLinemode," + path +
                              ",01,,T,S1  ,    ,    ,0,9,0,15)");
  EXPECT_EQ(Lines(c.lines.end() - 3, c.lines.end()), (Lines{"crea,T", "   ditch S1  ", ""}));
}

TEST_F(ComExcel, TheMacrosArgumentsComeBackAsItLeftThem) {
  std::vector<AutoValue> args{"C:\\b.xls", "01", std::string(), "T", "S1  ", "L1  ",
                              "R1  ",      2.5,  9.0,           0.0, 15.0};
  excel->run("Tabulon.xla!Ditch.ConvertListToLinemode", args);
  EXPECT_EQ(args[2].text(), "crea,T\r\n   ditch S1  ");
  EXPECT_EQ(args[7].number(), 1002.5);
  EXPECT_EQ(args[10].number(), 1015);
  EXPECT_EQ(args[3].text(), "T");  // a value the macro left alone
}

}  // namespace
}  // namespace korvane::test
