// Excel 97-2003 workbooks (.xls) where no Excel runs: read, never written.
#ifdef KORVANE_WORKBOOK_FILES

#include <gtest/gtest.h>

#include "hosts/excel/workbook/workbook_files.h"
#include "support/excel_project.h"

namespace korvane::test {
namespace {

// old.xls: the sheet "Adatok" holds 12.5 in A1 and the shared text "árok" in B2.
struct XlsWorkbook : ExcelProject {
  XlsWorkbook() { use(hosts::makeWorkbookFiles()); }
  void SetUp() override {
    ASSERT_EQ(python("old_xls_book.py", {project.path("excel/old.xls")}), 0) << python();
  }
};

TEST_F(XlsWorkbook, XlgetReadsNumbersAndTextsAndXlputEndsTheRunWithTheBookUnchanged) {
  ASSERT_TRUE(compile("#n=xlget(old,A1)\r\n#t=xlget(old.xls,$B$2,ADATOK)\r\n#e=xlget(old,C9)\r\n"))
      << failure();
  EXPECT_EQ(c.var("n"), "12.5");
  EXPECT_EQ(c.var("t"), "\xE1rok");  // "árok" in the code page
  EXPECT_EQ(c.var("e"), "");         // outside the used area
  const std::string before = project.read("excel/old.xls");
  EXPECT_FALSE(compile("xlput,old,Adatok,1,1,7\r\n"));
  EXPECT_NE(failure().find("Without Excel, workbooks in the old .xls format are only read: " +
                           project.path("excel/old.xls")),
            std::string::npos)
      << failure();
  EXPECT_EQ(project.read("excel/old.xls"), before);
}

}  // namespace
}  // namespace korvane::test

#endif
