// Workbooks read and written as files, where no Excel runs: the example
// project's workbook, typed entries and cell references. A round trip through
// a workbook that openpyxl made and reads back, bad workbooks, sheets, cells
// and values, .xls workbooks and the macros are golden cases
// (xlput_into_a_stored_workbook, bad_workbooks, xls_workbooks_are_only_read,
// macros_need_excel).
#ifdef KORVANE_WORKBOOK_FILES

#include <gtest/gtest.h>

#include <map>

#include "base/conversions.h"
#include "hosts/excel/workbook/cell_reference.h"
#include "hosts/excel/workbook/typed_entry.h"
#include "support/cli.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

using hosts::workbook::TypedEntry;

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
