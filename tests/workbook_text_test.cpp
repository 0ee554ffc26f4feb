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

// Writes book.xlsx as Excel would store it: A1:A3 hold 1, 2, 3; B1:B3 the
// formula "=A1*2+$A$1" filled down (stored once, with the values Excel
// calculated: 3, 5, 7); C1 a shared text with a line break, C2 an inline text
// with a tab, C3 a formula's text result, D1 a text that holds "_x0041_" as
// it stands. "check" then asserts what openpyxl sees after our writes.
const char* const kPython = R"py(
import sys, zipfile
book = sys.argv[2]
MAIN = 'http://schemas.openxmlformats.org/spreadsheetml/2006/main'
R = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
P = 'http://schemas.openxmlformats.org/package/2006/relationships'
XML = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
CT = 'application/vnd.openxmlformats-officedocument.spreadsheetml.'
if sys.argv[1] == 'make':
    parts = {
        '[Content_Types].xml': '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/>'
            '<Override PartName="/xl/workbook.xml" ContentType="' + CT + 'sheet.main+xml"/>'
            '<Override PartName="/xl/worksheets/sheet1.xml" ContentType="' + CT + 'worksheet+xml"/>'
            '<Override PartName="/xl/sharedStrings.xml" ContentType="' + CT + 'sharedStrings+xml"/></Types>',
        '_rels/.rels': '<Relationships xmlns="' + P + '"><Relationship Id="rId1" Type="' + R +
            '/officeDocument" Target="xl/workbook.xml"/></Relationships>',
        'xl/workbook.xml': '<workbook xmlns="' + MAIN + '" xmlns:r="' + R + '"><sheets>'
            '<sheet name="Data" sheetId="1" r:id="rId1"/></sheets></workbook>',
        'xl/_rels/workbook.xml.rels': '<Relationships xmlns="' + P + '">'
            '<Relationship Id="rId1" Type="' + R + '/worksheet" Target="worksheets/sheet1.xml"/>'
            '<Relationship Id="rId2" Type="' + R + '/sharedStrings" Target="sharedStrings.xml"/></Relationships>',
        'xl/sharedStrings.xml': '<sst xmlns="' + MAIN + '" count="2" uniqueCount="2">'
            '<si><t>first_x000D__x000A_second</t></si><si><t>_x005F_x0041_ as typed</t></si></sst>',
        'xl/worksheets/sheet1.xml': '<worksheet xmlns="' + MAIN + '"><dimension ref="A1:D3"/><sheetData>'
            '<row r="1"><c r="A1"><v>1</v></c><c r="B1"><f t="shared" ref="B1:B3" si="0">A1*2+$A$1</f><v>3</v></c>'
            '<c r="C1" t="s"><v>0</v></c><c r="D1" t="s"><v>1</v></c></row>'
            '<row r="2"><c r="A2"><v>2</v></c><c r="B2"><f t="shared" si="0"/><v>5</v></c>'
            '<c r="C2" t="inlineStr"><is><t>tab_x0009_end</t></is></c></row>'
            '<row r="3"><c r="A3"><v>3</v></c><c r="B3"><f t="shared" si="0"/><v>7</v></c>'
            '<c r="C3" t="str"><f>"x"&amp;CHAR(13)</f><v>x_x000D_</v></c></row>'
            '</sheetData></worksheet>',
    }
    with zipfile.ZipFile(book, 'w', zipfile.ZIP_DEFLATED) as z:
        for name, data in parts.items():
            z.writestr(name, XML + data)
    sys.exit(0)
import openpyxl
ws = openpyxl.load_workbook(book)['Data']
got = [ws[a].value for a in ('B1', 'B2', 'B3')]
assert got == [10, '=A2*2+$A$1', '=A3*2+$A$1'], got
with zipfile.ZipFile(book) as z:
    sst = z.read('xl/sharedStrings.xml').decode()
assert '<t>cr_x000D_here _x005F_x0042_</t>' in sst, sst
print('read back')
)py";

struct WorkbookText : ExcelProject {
  std::string book = project.path("book.xlsx");
  void SetUp() override { ASSERT_EQ(python(kPython, {"make", book}), 0) << python(); }
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
  EXPECT_EQ(python(kPython, {"check", book}), 0) << python();
}

TEST(FormulaShift, ReferencesMoveAsExcelMovesThemWhenItFills) {
  for (const auto& v : readVectors("formula_shift.txt", 4))
    EXPECT_EQ(
        hosts::workbook::shiftFormula(v.fields[0], std::stoi(v.fields[1]), std::stoi(v.fields[2])),
        v.fields[3])
        << v.where;
}

TEST(EscapedCellText, ReadAndWrittenAsExcelDoes) {
  using hosts::workbook::escapeCellText;
  using hosts::workbook::unescapeCellText;
  EXPECT_EQ(unescapeCellText("a_x000D__x000a_b"), "a\r\nb");
  EXPECT_EQ(unescapeCellText("_x005F_x000D_"), "_x000D_");
  EXPECT_EQ(unescapeCellText("_x00E1_rok _xD83D__xDE00_"), "\xC3\xA1rok \xF0\x9F\x98\x80");
  EXPECT_EQ(unescapeCellText("_x12_ _xZZZZ_ _x0041"), "_x12_ _xZZZZ_ _x0041");
  EXPECT_EQ(escapeCellText("a\r\nb\x01"), "a_x000D_\nb_x0001_");
  EXPECT_EQ(escapeCellText("_x000D_ and _x12_"), "_x005F_x000D_ and _x12_");
  for (const char* text : {"_x005F_x0041_", "line\rbreak", "plain"})
    EXPECT_EQ(unescapeCellText(escapeCellText(text)), text) << text;
}

}  // namespace
}  // namespace korvane::test

#endif
