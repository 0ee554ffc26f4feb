#include "hosts/excel.h"

#ifdef KORVANE_WORKBOOK_FILES
#include "hosts/excel/workbook/workbook_files.h"
#endif

namespace korvane::hosts {

texts::runtime::Key WorkbookError::key(Reason reason) {
  switch (reason) {
    case Reason::Unreadable:
      return texts::runtime::kWorkbookUnreadable;
    case Reason::NoSheet:
      return texts::runtime::kNoWorksheet;
    case Reason::BadCell:
      return texts::runtime::kNotACell;
    case Reason::Refused:
      return texts::runtime::kCellRefused;
    case Reason::Unwritable:
      return texts::runtime::kWorkbookUnwritable;
    case Reason::ReadOnly:
      return texts::runtime::kWorkbookReadOnly;
  }
  return texts::runtime::kWorkbookUnreadable;
}

namespace {

// A build without the workbook libraries, off Windows: every use says so.
class NoExcel final : public ExcelHost {
 public:
  std::unique_ptr<Worksheet> worksheet(const std::string& path, const std::string&) override {
    throw AutomationError(AutomationError::Reason::NotInstalled, "Excel", path);
  }
  bool running() override { return false; }
  AutoValue run(const std::string& macro, std::vector<AutoValue>&) override {
    throw AutomationError(AutomationError::Reason::NotRunning, "Excel.Application.Run", macro);
  }
};

}  // namespace

std::unique_ptr<ExcelHost> makeExcelHost(AutomationSystem& system) {
#ifdef _WIN32
  return makeAutomationExcel(system);
#elif defined(KORVANE_WORKBOOK_FILES)
  return makeWorkbookFiles();
#else
  return std::make_unique<NoExcel>();
#endif
}

}  // namespace korvane::hosts
