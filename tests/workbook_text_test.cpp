// What Excel stores in a workbook's XML in a form of its own: a formula filled
// down a column kept once in its first cell, and characters that XML cannot
// carry written as "_xHHHH_". Cells of both are read as Excel shows them, and
// a cell written among them leaves the others as Excel (and openpyxl) read
// them.
#ifdef KORVANE_WORKBOOK_FILES

#include <gtest/gtest.h>

#include "hosts/excel.h"
#include "hosts/excel/workbook/escaped_text.h"
#include "hosts/excel/workbook/formula_shift.h"
#include "hosts/excel/workbook/typed_entry.h"
#include "hosts/excel/workbook/xlsx_workbook.h"
#include "support/excel_project.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

// book.xlsx as Excel stores it: 1, 2, 3 in A1:A3, "=A1*2+$A$1" filled down
// B1:B3 (stored once, with the values 3, 5, 7), escaped texts in C1:C3 and D1.
struct WorkbookText : ExcelProject {
  std::string book = project.path("book.xlsx");
  void SetUp() override {
    ASSERT_EQ(python("filled_formula_book.py", {"make", book}), 0) << python();
  }
};

TEST_F(WorkbookText, AFormulaFilledDownAndEscapedCharactersReadAsExcelShowsThem) {
  hosts::workbook::XlsxWorkbook wb(book);
  const std::size_t s = wb.sheet("data");
  EXPECT_EQ(wb.value(s, {2, 2}), "5");  // 2*2+1, as Excel calculated it
  EXPECT_EQ(wb.value(s, {3, 2}), "7");
  EXPECT_EQ(wb.formula(s, {1, 2}), "A1*2+$A$1");
  EXPECT_EQ(wb.formula(s, {3, 2}), "A3*2+$A$1");  // two rows down: A moves, $A$1 stays
  EXPECT_EQ(wb.formula(s, {1, 1}), "");
  EXPECT_EQ(wb.value(s, {1, 3}), "first\r\nsecond");
  EXPECT_EQ(wb.value(s, {2, 3}), "tab\tend");
  EXPECT_EQ(wb.value(s, {3, 3}), "x\r");
  EXPECT_EQ(wb.value(s, {1, 4}), "_x0041_ as typed");
}

TEST_F(WorkbookText, OverwritingTheFirstCellOfAFilledFormulaKeepsTheOthersAndEscapesWhatIsWritten) {
  {
    hosts::workbook::XlsxWorkbook wb(book);
    wb.put(0, {1, 2}, hosts::workbook::typedEntry("10"));
  }
  {
    hosts::workbook::XlsxWorkbook wb(book);
    EXPECT_EQ(wb.formula(0, {2, 2}), "A2*2+$A$1");
    EXPECT_EQ(wb.value(0, {2, 2}), "5");  // the value stays until Excel calculates again
    wb.put(0, {4, 1}, hosts::workbook::typedEntry("cr\rhere _x0042_"));
  }
  hosts::workbook::XlsxWorkbook wb(book);
  EXPECT_EQ(wb.value(0, {4, 1}), "cr\rhere _x0042_");
  EXPECT_EQ(python("filled_formula_book.py", {"check", book}), 0) << python();
}

TEST(FormulaShift, ReferencesMoveAsExcelMovesThemWhenItFills) {
  for (const auto& v : readVectors("formula_shift.txt", 4))
    EXPECT_EQ(
        hosts::workbook::shiftFormula(v.fields[0], std::stoi(v.fields[1]), std::stoi(v.fields[2])),
        v.fields[3])
        << v.where;
}

TEST(EscapedCellText, ReadAndWrittenAsExcelDoes) {
  for (const auto& v : readVectors("escaped_cell_text.txt", 2)) {
    const bool write = v.where.find("[Write]") != std::string::npos;
    EXPECT_EQ(write ? hosts::workbook::escapeCellText(v.fields[0])
                    : hosts::workbook::unescapeCellText(v.fields[0]),
              v.fields[1])
        << v.where;
    if (write) {
      EXPECT_EQ(hosts::workbook::unescapeCellText(v.fields[1]), v.fields[0]) << v.where;
    }
  }
}

}  // namespace
}  // namespace korvane::test

#endif
