#include "hosts/excel/workbook/xls_workbook.h"

#include <freexl.h>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/fs.h"
#include "hosts/excel.h"

namespace korvane::hosts::workbook {

using Reason = WorkbookError::Reason;

XlsWorkbook::XlsWorkbook(const std::string& path) : path_(path) {
  if (freexl_open(fs::native(path).string().c_str(), &handle_) != FREEXL_OK) {
    if (handle_) freexl_close(handle_);
    handle_ = nullptr;
    throw WorkbookError(Reason::Unreadable, path);
  }
  unsigned int count = 0;
  freexl_get_info(handle_, FREEXL_BIFF_SHEET_COUNT, &count);
  for (unsigned short i = 0; i < count; ++i) {
    const char* name = nullptr;
    freexl_get_worksheet_name(handle_, i, &name);
    names_.push_back(cp::fromUtf8(name ? name : ""));
  }
  if (names_.empty()) {
    freexl_close(handle_);
    throw WorkbookError(Reason::Unreadable, path, "no worksheet");
  }
}

XlsWorkbook::~XlsWorkbook() {
  if (handle_) freexl_close(handle_);
}

std::size_t XlsWorkbook::sheet(const std::string& name) const {
  if (name.empty()) return 0;
  for (std::size_t i = 0; i < names_.size(); ++i)
    if (cp::equalsIgnoreCase(names_[i], name)) return i;
  throw WorkbookError(Reason::NoSheet, name);
}

void XlsWorkbook::select(std::size_t sheet) {
  if (freexl_select_active_worksheet(handle_, static_cast<unsigned short>(sheet)) != FREEXL_OK)
    throw WorkbookError(Reason::Unreadable, path_, names_.at(sheet));
}

std::string XlsWorkbook::value(std::size_t sheet, CellAddress cell) {
  select(sheet);
  unsigned int rows = 0;
  unsigned short columns = 0;
  freexl_worksheet_dimensions(handle_, &rows, &columns);
  if (static_cast<unsigned>(cell.row) > rows || cell.column > columns) return {};
  FreeXL_CellValue v;
  if (freexl_get_cell_value(handle_, cell.row - 1, static_cast<unsigned short>(cell.column - 1),
                            &v) != FREEXL_OK)
    return {};
  switch (v.type) {
    case FREEXL_CELL_INT:
      return conv::CStr(static_cast<double>(v.value.int_value));
    case FREEXL_CELL_DOUBLE:
      return conv::CStr(v.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
      return cp::fromUtf8(v.value.text_value ? v.value.text_value : "");
    default:
      return {};
  }
}

std::int32_t XlsWorkbook::lastRow(std::size_t sheet) {
  select(sheet);
  unsigned int rows = 0;
  unsigned short columns = 0;
  freexl_worksheet_dimensions(handle_, &rows, &columns);
  return static_cast<std::int32_t>(rows);
}

}  // namespace korvane::hosts::workbook
