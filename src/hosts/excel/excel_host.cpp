#include "hosts/excel.h"

#ifdef KORVANE_WORKBOOK_FILES
#include "hosts/excel/workbook/workbook_files.h"
#endif

namespace korvane::hosts {

const char* WorkbookError::key(Reason reason) {
  switch (reason) {
    case Reason::Unreadable:
      return "xlbook";
    case Reason::NoSheet:
      return "xlsheet";
    case Reason::BadCell:
      return "xlcell";
    case Reason::Refused:
      return "xlvalue";
    case Reason::Unwritable:
      return "xlwrite";
    case Reason::ReadOnly:
      return "xlreadonly";
  }
  return "xlbook";
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
