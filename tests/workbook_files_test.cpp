// Workbooks read and written as files, where no Excel runs: the failures a bad
// workbook, sheet, cell or value get, the example project's workbook, typed
// entries and cell references. A round trip through a workbook that openpyxl
// made and reads back, .xls workbooks and the macros are golden cases
// (xlput_into_a_stored_workbook, xls_workbooks_are_only_read,
// macros_need_excel).
#ifdef KORVANE_WORKBOOK_FILES

#include "hosts/excel/workbook/workbook_files.h"

#include <gtest/gtest.h>

#include <map>

#include "base/conversions.h"
#include "hosts/excel/workbook/cell_reference.h"
#include "hosts/excel/workbook/typed_entry.h"
#include "support/cli.h"
#include "support/excel_project.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

using hosts::workbook::TypedEntry;

struct WorkbookFiles : ExcelProject {
  WorkbookFiles() { use(hosts::makeWorkbookFiles()); }
  int paramsBook(const std::string& step) {
    return python("params_book.py",
                  {step, project.path("excel/params.xlsx"), project.path("entries.txt")});
  }
};

TEST_F(WorkbookFiles, BadWorkbooksSheetsCellsAndValuesEndTheRunAndChangeNothing) {
  ASSERT_EQ(paramsBook("make"), 0) << python();
  project.write("excel/notes.xlsx", "not a workbook\r\n");
  project.write("excel/broken.xlsx", "PK\x03\x04 and then nothing");
  const std::string original = project.read("excel/params.xlsx");
  const std::string book =
                        "The workbook cannot be read (missing, locked, damaged or not a workbook)",
                    sheet = "The workbook has no worksheet named \"Nothing\"",
                    cell = "Not a cell of a worksheet: \"",
                    value = "Excel does not take this as the content of a cell: \"=\"";
  const std::pair<const char*, std::string> cases[] = {
      {"#v=xlget(notes.xlsx,A1)", book},
      {"#v=xlget(broken.xlsx,A1)", book},
      {"#v=xlget(params.xlsx,A1,Nothing)", sheet},
      {"#v=xlget(params.xlsx,B)", cell + "B\""},
      {"#v=xlget(params.xlsx,XFE1)", cell + "XFE1\""},
      {"xlput,params.xlsx,Nothing,1,1,x", sheet},
      {"xlput,params.xlsx,Results,0,1,x", cell},
      {"xlput,params.xlsx,Results,1,16385,x", cell},
      {"xlput,params.xlsx,Results,1,1,\"=\"", value},
      {"xlput,notes.xlsx,Results,1,1,x", book},
  };
  for (const auto& [line, message] : cases) {
    EXPECT_FALSE(compile(std::string(line) + "\r\n")) << line;
    EXPECT_NE(failure().find(message), std::string::npos) << line << ": " << failure();
  }
  EXPECT_EQ(project.read("excel/params.xlsx"), original);
}

// The example project reads its design parameters from excel/design.xlsx and
// writes MAST's plan length (6 points 20 m apart: 100) into it.
using ExampleWorkbook = ExampleProject;

TEST_F(ExampleWorkbook, TheExampleReadsItsParametersAndWritesItsResult) {
  ASSERT_EQ(run("models import survey/ground.genio GROUND"), 0) << err();
  ASSERT_EQ(run("compile 'inputs/road.ipf [main]' 'inputs/road.ipf [excel]'"), 0) << err();
  EXPECT_NE(out().find("   Design speed 60 km/h, lane 3.25 m, edge offset 3.5 m\r\n"),
            std::string::npos)
      << out();
  EXPECT_NE(out().find("   MAST plan length 100 written to the sheet Results\r\n"),
            std::string::npos)
      << out();
}

TEST(TypedEntries, StoredAsExcelStoresWhatIsTypedIntoACell) {
  using K = TypedEntry::Kind;
  const std::map<std::string, K> kinds = {
      {"Empty", K::Empty}, {"Number", K::Number}, {"Text", K::Text}, {"Formula", K::Formula}};
  for (const auto& v : readVectors("typed_entries.txt", 3)) {
    const TypedEntry e = hosts::workbook::typedEntry(v.fields[0]);
    EXPECT_EQ(e.kind, kinds.at(v.fields[1])) << v.where;
    EXPECT_EQ(e.kind == K::Number ? conv::CStr(e.number) : e.text, v.fields[2]) << v.where;
  }
  EXPECT_THROW(hosts::workbook::typedEntry(std::string(32768, 'x')), hosts::WorkbookError);
  EXPECT_THROW(hosts::workbook::typedEntry("a\x01"), hosts::WorkbookError);
}

TEST(CellReferences, AsAUserWritesThem) {
  for (const auto& v : readVectors("cell_references.txt", 2)) {
    const auto r = hosts::workbook::parseReference(v.fields[0]);
    EXPECT_EQ(
        r ? r->sheet + "!" + std::to_string(r->cell.row) + "," + std::to_string(r->cell.column)
          : "none",
        v.fields[1])
        << v.where;
  }
  EXPECT_EQ(hosts::workbook::addressText({12, 28}), "AB12");
}

}  // namespace
}  // namespace korvane::test

#endif
