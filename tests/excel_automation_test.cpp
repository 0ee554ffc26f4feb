// Excel over automation, as on Windows, against recording automation objects:
// the members a workbook, worksheet and cell are reached by, and the macro
// calls of the ditch commands with their arguments by reference.
#include <gtest/gtest.h>

#include "base/fs.h"
#include "support/automation.h"
#include "support/excel_project.h"

namespace korvane::test {
namespace {

using hosts::AutoObject;
using hosts::AutoValue;
using Lines = std::vector<std::string>;

struct ExcelOverAutomation : ExcelProject {
  Lines log;
  RecordingSystem system{log};
  std::shared_ptr<RecordingObject> app = recorder("excel");

  ExcelOverAutomation() : ExcelProject(EngineChoice::Embedded) {
    use(hosts::makeAutomationExcel(system));
  }
  std::shared_ptr<RecordingObject> recorder(const std::string& name) {
    auto r = std::make_shared<RecordingObject>(log, name);
    r->logGets = true;
    return r;
  }
  std::string book(const std::string& name) {
    project.write("excel/" + name, "");
    return project.path("excel") + fs::kSep + name;
  }
};

TEST_F(ExcelOverAutomation, CellsAreReachedThroughTheWorkbookOfThePath) {
  const std::string path = book("data.xlsx");
  auto wb = recorder("book"), sheets = recorder("sheets"), sheet = recorder("sheet"),
       cell = recorder("cell");
  wb->answers["Worksheets"] = AutoObject(sheets);
  sheets->answers["Item"] = AutoObject(sheet);
  sheet->answers["Cells"] = AutoObject(cell);
  sheet->answers["Range"] = AutoObject(cell);
  cell->answers["Value"] = AutoValue(12.5);
  system.files[path] = wb;
  ASSERT_TRUE(compile("xlput,data.xlsx,Data,4,2,\"=A1*2\"\r\n#v=xlget(data.xlsx,B2)\r\n"))
      << failure();
  EXPECT_EQ(c.var("v"), "12.5");
  EXPECT_EQ(log, (Lines{"file " + path, "book.Worksheets", "sheets.Item(Data)", "sheet.Cells(4,2)",
                        "cell.FormulaLocal==A1*2", "file " + path, "book.Worksheets",
                        "sheets.Item(1)", "sheet.Range(B2)", "cell.Value"}));
}

TEST_F(ExcelOverAutomation, TheDitchMacrosRunInTheRunningExcelWithArgumentsByReference) {
  const std::string path = book("ditch.xls");
  system.running["Excel.Application"] = app;
  app->onCall = [](const std::string&, std::vector<AutoValue>& args) {
    if (args.size() > 3) args[3] = AutoValue("crea,FROM MACRO");  // the result text
    return AutoValue();
  };
  ASSERT_TRUE(compile(std::string(kDitchModel) + "ditch_list,T\r\nmast=S1,\xE1xe=9\r\n" +
                      "ditch_pips,t\r\nbasexls=ditch\r\n"))
      << failure();
  EXPECT_EQ(log, (Lines{"running Excel.Application",
                        "excel.Run[byref](Tabulon.xla!Ditch.ConvertListToLinemode," + path +
                            ",01,,T,S1  ,    ,    ,d:0,d:9,d:0,d:15)",
                        "running Excel.Application",
                        "excel.Run[byref](Tabulon.xla!Ditch.aaDrawPips," + path + ",T)"}));
  EXPECT_EQ(Lines(c.lines.end() - 2, c.lines.end()), (Lines{"crea,FROM MACRO", ""}));
}

TEST_F(ExcelOverAutomation, NoRunningExcelIsTheAddInMessage) {
  book("ditch.xls");
  EXPECT_FALSE(compile("ditch_pips,T\r\nbasexls=ditch\r\n"));
  EXPECT_EQ(c.stopMessage(),
            "The Excel macro call failed. Is Excel running with the Tabulon.xla add-in loaded?");
  EXPECT_FALSE(compile("xlmacro,Book.xlsm!Go\r\n"));  // no excel.exe process
  EXPECT_EQ(c.stopMessage(), "xlmacro needs a running Excel. Start Excel and run again.");
  system.processes["excel.exe"] = {"EXCEL.EXE"};
  system.running["Excel.Application"] = app;
  ASSERT_TRUE(compile("xlmacro,Book.xlsm!Go,1,x\r\n")) << failure();
  EXPECT_EQ(log.back(), "excel.Run[byref](Book.xlsm!Go,1,x)");
}

}  // namespace
}  // namespace korvane::test
