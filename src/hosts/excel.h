// What Korvane does with Excel: read a cell or range of a workbook's
// worksheet, search its key column, write one cell as if typed into it, and
// run a macro of the running Excel. On Windows Excel itself does this over
// automation; elsewhere the workbook files are read and written directly, and
// macros are not available.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/texts/runtime_texts.h"
#include "hosts/automation.h"

namespace korvane::hosts {

// A workbook that cannot be used as asked. `subject` is the workbook's path
// (or the cell or sheet named); key() is the reason's text in the language
// file's "Runtime" section.
class WorkbookError : public std::runtime_error {
 public:
  enum class Reason {
    Unreadable,  // missing, locked, corrupt or not a workbook
    NoSheet,     // no worksheet of that name
    BadCell,     // not a cell reference, or outside the sheet
    Refused,     // a value Excel does not take for a cell
    Unwritable,  // the workbook cannot be written back
    ReadOnly,    // a format that is only read here
  };
  WorkbookError(Reason reason, std::string subject, std::string detail = {})
      : std::runtime_error(subject + (detail.empty() ? "" : ": " + detail)),
        reason(reason),
        subject(std::move(subject)),
        detail(std::move(detail)) {}
  static texts::runtime::Key key(Reason reason);

  Reason reason;
  std::string subject;
  std::string detail;
};

// Excel's limits of a worksheet and a cell.
inline constexpr std::int32_t kExcelRows = 1048576;
inline constexpr std::int32_t kExcelColumns = 16384;
inline constexpr std::size_t kExcelCellChars = 32767;

class Worksheet {
 public:
  virtual ~Worksheet() = default;
  // The `Value` of a cell or range ("B3", "$b$3", "A1:C2"), as text.
  virtual std::string value(const std::string& reference) = 0;
  // The `Value` of one cell (1-based row and column), as text.
  virtual std::string cellValue(std::int32_t row, std::int32_t column) = 0;
  // The last row that holds anything (0 for an empty sheet).
  virtual std::int32_t lastRow() = 0;
  // Sets the cell's `FormulaLocal`: the text as if the user typed it in.
  // True when that wrote the workbook's file (false: an open Excel keeps the
  // change until the user saves).
  virtual bool setFormulaLocal(std::int32_t row, std::int32_t column, const std::string& text) = 0;
};

class ExcelHost {
 public:
  virtual ~ExcelHost() = default;
  // A worksheet of the workbook at `path`, by name; "" is the first worksheet.
  // Throws WorkbookError or AutomationError.
  virtual std::unique_ptr<Worksheet> worksheet(const std::string& path,
                                               const std::string& sheet) = 0;
  // Whether an Excel process (excel.exe) runs.
  virtual bool running() = 0;
  // Runs a macro of the running Excel (never started for this); the
  // arguments go by reference and come back as the macro left them. Throws
  // AutomationError.
  virtual AutoValue run(const std::string& macro, std::vector<AutoValue>& args) = 0;
};

// Excel over late-bound automation: workbooks through the system's binding by
// file name, macros through the running "Excel.Application". `system` must
// outlive the host.
std::unique_ptr<ExcelHost> makeAutomationExcel(AutomationSystem& system);

// This machine's Excel: over automation on Windows; elsewhere the workbook
// files themselves (when this build can read them), with no macros.
std::unique_ptr<ExcelHost> makeExcelHost(AutomationSystem& system);

}  // namespace korvane::hosts
