#include "hosts/excel/workbook/workbook_files.h"

#include <variant>

#include "base/codepage.h"
#include "base/fs.h"
#include "hosts/excel/workbook/xls_workbook.h"
#include "hosts/excel/workbook/xlsx_workbook.h"

namespace korvane::hosts {
namespace {

using workbook::CellAddress;
using Reason = WorkbookError::Reason;

// What a file is, by its first bytes: a zip container or an OLE compound file.
enum class Format { Zip, Ole, Other };

Format formatOf(const std::string& path) {
  std::FILE* f = std::fopen(fs::native(path).string().c_str(), "rb");
  if (!f) throw WorkbookError(Reason::Unreadable, path);
  unsigned char head[4] = {};
  const std::size_t n = std::fread(head, 1, 4, f);
  std::fclose(f);
  if (n == 4 && head[0] == 'P' && head[1] == 'K' && head[2] == 3 && head[3] == 4)
    return Format::Zip;
  if (n == 4 && head[0] == 0xD0 && head[1] == 0xCF && head[2] == 0x11 && head[3] == 0xE0)
    return Format::Ole;
  return Format::Other;
}

class FileWorksheet final : public Worksheet {
 public:
  using Book =
      std::variant<std::unique_ptr<workbook::XlsxWorkbook>, std::unique_ptr<workbook::XlsWorkbook>>;
  FileWorksheet(std::string path, Book book, std::size_t sheet)
      : path_(std::move(path)), book_(std::move(book)), sheet_(sheet) {}

  std::string value(const std::string& reference) override {
    auto ref = workbook::parseReference(reference);
    if (!ref) throw WorkbookError(Reason::BadCell, reference);
    std::size_t sheet = sheet_;
    if (!ref->sheet.empty())
      sheet = std::visit([&](auto& b) { return b->sheet(ref->sheet); }, book_);
    return std::visit([&](auto& b) { return b->value(sheet, ref->cell); }, book_);
  }
  std::string cellValue(std::int32_t row, std::int32_t column) override {
    return std::visit([&](auto& b) { return b->value(sheet_, checked(row, column)); }, book_);
  }
  std::int32_t lastRow() override {
    return std::visit([&](auto& b) { return b->lastRow(sheet_); }, book_);
  }
  bool setFormulaLocal(std::int32_t row, std::int32_t column, const std::string& text) override {
    auto* xlsx = std::get_if<std::unique_ptr<workbook::XlsxWorkbook>>(&book_);
    if (!xlsx) throw WorkbookError(Reason::ReadOnly, path_);
    const CellAddress cell = checked(row, column);
    // No Excel keeps the change open: the workbook is saved at once.
    (*xlsx)->put(sheet_, cell, workbook::typedEntry(text));
    return true;
  }

 private:
  static CellAddress checked(std::int32_t row, std::int32_t column) {
    if (row < 1 || row > kExcelRows || column < 1 || column > kExcelColumns)
      throw WorkbookError(Reason::BadCell,
                          "R" + std::to_string(row) + "C" + std::to_string(column));
    return {row, column};
  }

  std::string path_;
  Book book_;
  std::size_t sheet_;
};

class WorkbookFiles final : public ExcelHost {
 public:
  std::unique_ptr<Worksheet> worksheet(const std::string& path, const std::string& sheet) override {
    if (!fs::fileExists(path)) throw WorkbookError(Reason::Unreadable, path);
    FileWorksheet::Book book;
    std::size_t index = 0;
    switch (formatOf(path)) {
      case Format::Zip: {
        auto b = std::make_unique<workbook::XlsxWorkbook>(path);
        index = b->sheet(sheet);
        book = std::move(b);
        break;
      }
      case Format::Ole: {
        auto b = std::make_unique<workbook::XlsWorkbook>(path);
        index = b->sheet(sheet);
        book = std::move(b);
        break;
      }
      case Format::Other:
        throw WorkbookError(Reason::Unreadable, path);
    }
    return std::make_unique<FileWorksheet>(path, std::move(book), index);
  }

  bool running() override { return false; }

  AutoValue run(const std::string& macro, std::vector<AutoValue>&) override {
    throw AutomationError(AutomationError::Reason::NotRunning, "Excel.Application.Run", macro);
  }
};

}  // namespace

std::unique_ptr<ExcelHost> makeWorkbookFiles() { return std::make_unique<WorkbookFiles>(); }

}  // namespace korvane::hosts
