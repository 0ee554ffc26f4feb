// An Excel 97-2003 workbook (.xls), read through FreeXL. Such workbooks are
// only read here; writing them needs Excel.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/excel/workbook/cell_reference.h"

namespace korvane::hosts::workbook {

class XlsWorkbook {
 public:
  // Throws WorkbookError (Unreadable) when the file is no such workbook.
  explicit XlsWorkbook(const std::string& path);
  ~XlsWorkbook();
  XlsWorkbook(const XlsWorkbook&) = delete;
  XlsWorkbook& operator=(const XlsWorkbook&) = delete;

  // As XlsxWorkbook: by name in any letter case, "" the first.
  std::size_t sheet(const std::string& name) const;
  std::string value(std::size_t sheet, CellAddress cell);
  std::int32_t lastRow(std::size_t sheet);

 private:
  void select(std::size_t sheet);
  const void* handle_ = nullptr;
  std::string path_;
  std::vector<std::string> names_;  // users' code page
};

}  // namespace korvane::hosts::workbook
