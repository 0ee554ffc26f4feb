// The Excel functions and commands against a recording Excel: where workbooks
// are looked for, getname's two argument orders and the exact macro calls of
// the ditch commands. Without a running Excel: excel_automation_test and
// workbook_files_test.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <set>

#include "base/fs.h"
#include "support/project.h"

using namespace korvane;
using hosts::AutoValue;
using Lines = std::vector<std::string>;

namespace {

// A worksheet of cells held in memory.
using Cells = std::map<std::pair<std::int32_t, std::int32_t>, std::string>;

class FakeSheet final : public hosts::Worksheet {
 public:
  explicit FakeSheet(Cells& cells) : cells_(cells) {}
  std::string value(const std::string& reference) override { return "value of " + reference; }
  std::string cellValue(std::int32_t row, std::int32_t column) override {
    auto it = cells_.find({row, column});
    return it == cells_.end() ? std::string() : it->second;
  }
  std::int32_t lastRow() override {
    std::int32_t last = 0;
    for (const auto& [at, v] : cells_) last = std::max(last, at.first);
    return last;
  }
  bool setFormulaLocal(std::int32_t row, std::int32_t column, const std::string& text) override {
    cells_[{row, column}] = text;
    return true;  // as the workbook files do
  }

 private:
  Cells& cells_;
};

// Records every workbook opened and every macro run, with the type of each
// argument ("s:" text, "d:" number).
class RecordingExcel final : public hosts::ExcelHost {
 public:
  std::unique_ptr<hosts::Worksheet> worksheet(const std::string& path,
                                              const std::string& sheet) override {
    opened.push_back(path + "|" + sheet);
    return std::make_unique<FakeSheet>(cells);
  }
  bool running() override { return true; }
  AutoValue run(const std::string& macro, std::vector<AutoValue>& args) override {
    std::string call = macro;
    for (const AutoValue& a : args)
      call += std::string(std::holds_alternative<double>(a.v) ? ",d:" : ",s:") + a.text();
    runs.push_back(call);
    if (args.size() > 2) args[2] = AutoValue(macroResult);  // the result text, by reference
    return {};
  }

  Cells cells;
  Lines opened, runs;
  std::string macroResult;
};

struct ExcelFunctions : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};
  RecordingExcel excel;

  void SetUp() override { c.ctx.excel = &excel; }
  bool compile(const std::string& text) {
    project.write("q.ipf", text);
    return c.compile("q.ipf");
  }
  std::string inExcelFolder(const std::string& name) {
    return project.path("excel") + fs::kSep + name;
  }
};

TEST_F(ExcelFunctions, WorkbooksAreLookedForInTheProjectsExcelFolderWithXlsByDefault) {
  project.write("excel/params.xls", "");
  project.write("excel/params.xlsx", "");
  project.write("elsewhere/book.xlsm", "");
  const std::string elsewhere = project.path("elsewhere") + fs::kSep + "book.xlsm";
  ASSERT_TRUE(
      compile("#a=xlget(params,B2)\r\n"
              "#b=xlget(params.xlsx,$C$3,Data)\r\n"
              "#c=xlget(\"" +
              elsewhere +
              "\",A1)\r\n"
              "#d=xlget(missing,A1)\r\n"))
      << c.failure();
  EXPECT_EQ(c.var("a"), "value of B2");
  EXPECT_EQ(c.var("b"), "value of $C$3");
  EXPECT_EQ(c.var("c"), "value of A1");
  EXPECT_EQ(c.var("d"), "");  // not found: empty, and the user is told where we looked
  EXPECT_EQ(excel.opened, (Lines{inExcelFolder("params.xls") + "|",
                                 inExcelFolder("params.xlsx") + "|Data", elsewhere + "|"}));
  ASSERT_EQ(c.log.size(), 1u);
  EXPECT_EQ(c.log[0], "Excel workbook not found: " + inExcelFolder("missing.xls"));
}

TEST_F(ExcelFunctions, GetnameFindsTheKeyInEitherArgumentOrder) {
  project.write("excel/road.xlsx", "");
  excel.cells = {{{1, 1}, "Name"}, {{1, 2}, "Width"}, {{1, 3}, "Depth"}, {{2, 1}, "  Ditch "},
                 {{2, 2}, "0.5"},  {{2, 3}, "0.8"},   {{3, 1}, "kerb"},  {{3, 2}, "0.15"},
                 {{3, 3}, "0.3"},  {{4, 1}, "ditch"}, {{4, 3}, "second"}};
  ASSERT_TRUE(
      compile("#keyFirst=getname(road.xlsx,ditch,2)\r\n"
              "#columnFirst=getname(road.xlsx,1,DITCH)\r\n"
              "#kerb=getname(road.xlsx,Kerb,1,Sheet2)\r\n"
              "#none=getname(road.xlsx,verge,1)\r\n"))
      << c.failure();
  EXPECT_EQ(c.var("keyFirst"), "0.8");     // the first matching row, column 2 of B:IV is C
  EXPECT_EQ(c.var("columnFirst"), "0.5");  // the same row, column 1 is B
  EXPECT_EQ(c.var("kerb"), "0.15");
  EXPECT_EQ(c.var("none"), "");
  EXPECT_EQ(excel.opened.back(), inExcelFolder("road.xlsx") + "|");
  EXPECT_EQ(excel.opened[2], inExcelFolder("road.xlsx") + "|Sheet2");
  EXPECT_FALSE(compile("#x=getname(road.xlsx,ditch,width)\r\n"));  // no column given
  EXPECT_EQ(c.failure(), "Invalid argument in getname");
}

// Model T's string S1 runs (10,10) (13,14) (19,22): chainages 0, 5 and 15.
const char* const kModel =
    "geni,T\r\n001format(3f12.3)\r\n080,S1,,7=3\r\n"
    "00000010.00000000010.00000000000.000\r\n00000013.00000000014.00000000000.000\r\n"
    "00000019.00000000022.00000000000.000\r\n00000000.00000000000.00000000000.000\r\n999\r\n";

TEST_F(ExcelFunctions, DitchListPassesTheMastersChainagesAndWritesTheMacrosLines) {
  project.write("excel/ditch.xls", "");
  excel.macroResult = "crea,DITCH\r\n   line 2";
  ASSERT_TRUE(compile(std::string(kModel) +
                      "ditch_list,T\r\n"
                      "id=abc,mast=S1,ditchL=L1,\r\n"
                      "ditchR=R12345\r\n"
                      "ditch_list,T\r\n"
                      "basexls=ditch.xls,id=7,mast=S1,\xE1xs=2.5,\xE1xe=12\r\n"))
      << c.failure();
  const std::string book = "s:" + inExcelFolder("ditch.xls");
  EXPECT_EQ(excel.runs, (Lines{"Tabulon.xla!Ditch.ConvertListToLinemode," + book +
                                   ",s:AB,s:,s:T,s:S1  ,s:L1  ,s:R123,d:0,d:15,d:0,d:15",
                               "Tabulon.xla!Ditch.ConvertListToLinemode," + book +
                                   ",s:7 ,s:,s:T,s:S1  ,s:    ,s:    ,d:2.5,d:12,d:0,d:15"}));
  // Each call: the macro's lines, then an empty line.
  const Lines tail(c.lines.end() - 6, c.lines.end());
  EXPECT_EQ(tail, (Lines{"crea,DITCH", "   line 2", "", "crea,DITCH", "   line 2", ""}));
}

TEST_F(ExcelFunctions, DitchPipsNamesTheWorkbookAndTheUpperCasedModel) {
  project.write("excel/pips.xlsm", "");
  ASSERT_TRUE(
      compile("ditch_pips,Road\xE1\r\nbasexls=pips.xlsm\r\n"
              "ditch_pips,road\r\nbasexls=nowhere\r\n"))
      << c.failure();
  EXPECT_EQ(excel.runs, (Lines{"Tabulon.xla!Ditch.aaDrawPips,s:" + inExcelFolder("pips.xlsm") +
                               ",s:ROAD\xC1"}));  // "á" upper-cased in the code page
}

TEST_F(ExcelFunctions, XlmacroPassesTheFieldsOfItsLineAndXlputItsCell) {
  project.write("excel/out.xlsx", "");
  ASSERT_TRUE(
      compile("#n=4\r\nxlmacro,Book.xlsm!Go,|n*2|,,last\r\n"
              "xlput,out.xlsx,Data,|n|,2,\"=A1*2\"\r\n"
              "xlput,missing,Data,1,1,x\r\n"))
      << c.failure();
  EXPECT_EQ(excel.runs, (Lines{"Book.xlsm!Go,s:8,s:,s:last"}));
  EXPECT_EQ(c.lines, (Lines{"   Excel macro call (xlmacro)"}));  // announced before the flush
  EXPECT_EQ(excel.opened, (Lines{inExcelFolder("out.xlsx") + "|Data"}));
  EXPECT_EQ(excel.cells, (Cells{{{4, 2}, "=A1*2"}}));
  EXPECT_EQ(c.ctx.filesWritten, (std::set<std::string>{inExcelFolder("out.xlsx")}));
}

}  // namespace
