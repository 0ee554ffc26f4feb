// Excel over automation, as on Windows, against recording automation objects:
// the members a workbook, worksheet and cell are reached by, and the macro
// calls of the ditch commands with their arguments by reference.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "base/fs.h"
#include "hosts/excel.h"
#include "support/project.h"

using namespace korvane;
using hosts::AutoObject;
using hosts::AutoValue;
using Lines = std::vector<std::string>;

namespace {

// Logs every member used; `objects` answers calls and gets that give objects.
struct Recorder : hosts::AutomationObject {
  Lines& log;
  std::string name;
  std::map<std::string, AutoValue> answers;  // by member
  std::function<void(std::vector<AutoValue>&)> onRun;
  Recorder(Lines& l, std::string n) : log(l), name(std::move(n)) {}

  static std::string list(const std::vector<AutoValue>& args) {
    std::string s;
    for (const AutoValue& a : args)
      s += std::string(s.empty() ? "" : ",") + (std::holds_alternative<double>(a.v) ? "d:" : "") +
           a.text();
    return s;
  }
  AutoValue call(const std::string& m, const std::vector<AutoValue>& args) override {
    log.push_back(name + "." + m + "(" + list(args) + ")");
    return answers[m];
  }
  AutoValue get(const std::string& p) override {
    log.push_back(name + "." + p);
    return answers[p];
  }
  void set(const std::string& p, const AutoValue& v) override {
    log.push_back(name + "." + p + "=" + v.text());
  }
  AutoValue invoke(const std::string& m, std::vector<AutoValue>& args,
                   hosts::CallOptions options) override {
    log.push_back(name + "." + m + (options.byReference ? "[byref](" : "(") + list(args) + ")");
    if (onRun) onRun(args);
    return {};
  }
};

struct Automation : hosts::AutomationSystem {
  Lines& log;
  std::map<std::string, AutoObject> files, running;
  Lines processes;
  explicit Automation(Lines& l) : log(l) {}
  std::vector<std::string> processCommandLines(const std::string&) override { return processes; }
  AutoObject runningObject(const std::string& progId) override {
    log.push_back("running " + progId);
    if (!running.count(progId)) throw hosts::AutomationError(progId);
    return running[progId];
  }
  AutoObject fileObject(const std::string& name) override {
    log.push_back("file " + name);
    if (!files.count(name)) throw hosts::AutomationError(name);
    return files[name];
  }
  std::string fileVersion(const std::string&) override { return {}; }
  std::vector<std::string> registrySubkeys(const std::string&) override { return {}; }
};

struct ExcelOverAutomation : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};
  Lines log;
  Automation system{log};
  std::unique_ptr<hosts::ExcelHost> excel = hosts::makeAutomationExcel(system);
  std::shared_ptr<Recorder> app = std::make_shared<Recorder>(log, "excel");

  void SetUp() override { c.ctx.excel = excel.get(); }
  std::string book(const std::string& name) {
    project.write("excel/" + name, "");
    return project.path("excel") + fs::kSep + name;
  }
  bool compile(const std::string& text) {
    project.write("q.ipf", text);
    return c.compile("q.ipf");
  }
  std::string failure() const { return c.failure(); }
};

TEST_F(ExcelOverAutomation, CellsAreReachedThroughTheWorkbookOfThePath) {
  const std::string path = book("data.xlsx");
  auto wb = std::make_shared<Recorder>(log, "book");
  auto sheets = std::make_shared<Recorder>(log, "sheets");
  auto sheet = std::make_shared<Recorder>(log, "sheet");
  auto cell = std::make_shared<Recorder>(log, "cell");
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

// Model T's string S1 runs (10,10) (13,14) (19,22): chainages 0, 5 and 15.
const char* const kModel =
    "geni,T\r\n001format(3f12.3)\r\n080,S1,,7=3\r\n"
    "00000010.00000000010.00000000000.000\r\n00000013.00000000014.00000000000.000\r\n"
    "00000019.00000000022.00000000000.000\r\n00000000.00000000000.00000000000.000\r\n999\r\n";

TEST_F(ExcelOverAutomation, TheDitchMacrosRunInTheRunningExcelWithArgumentsByReference) {
  const std::string path = book("ditch.xls");
  system.running["Excel.Application"] = app;
  app->onRun = [](std::vector<AutoValue>& args) {
    if (args.size() > 3) args[3] = AutoValue("crea,FROM MACRO");  // the result text
  };
  ASSERT_TRUE(compile(std::string(kModel) + "ditch_list,T\r\nmast=S1,\xE1xe=9\r\n" +
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
  EXPECT_EQ(c.stopMessage(), c.ctx.text({"Messages", "s12"}));
  EXPECT_FALSE(compile("xlmacro,Book.xlsm!Go\r\n"));  // no excel.exe process
  EXPECT_EQ(c.stopMessage(), c.ctx.text({"Messages", "s8"}));
  system.processes = {"EXCEL.EXE"};
  system.running["Excel.Application"] = app;
  ASSERT_TRUE(compile("xlmacro,Book.xlsm!Go,1,x\r\n")) << failure();
  EXPECT_EQ(log.back(), "excel.Run[byref](Book.xlsm!Go,1,x)");
}

}  // namespace
