// Excel over late-bound automation: the members a VBA client would use.
#include <algorithm>

#include "hosts/excel.h"

namespace korvane::hosts {
namespace {

class AutomationWorksheet final : public Worksheet {
 public:
  AutomationWorksheet(AutoObject book, AutoObject sheet)
      : book_(std::move(book)), sheet_(std::move(sheet)) {}

  std::string value(const std::string& reference) override {
    return objectOf(sheet_->call("Range", {reference}), "Range")->get("Value").text();
  }
  std::string cellValue(std::int32_t row, std::int32_t column) override {
    return cell(row, column)->get("Value").text();
  }
  std::int32_t lastRow() override {
    AutoObject used = objectOf(sheet_->get("UsedRange"), "UsedRange");
    const auto first = static_cast<std::int32_t>(used->get("Row").number());
    const auto count =
        static_cast<std::int32_t>(objectOf(used->get("Rows"), "Rows")->get("Count").number());
    return count > 0 ? first + count - 1 : 0;
  }
  bool setFormulaLocal(std::int32_t row, std::int32_t column, const std::string& text) override {
    // Excel keeps the change in the open workbook; saving is the user's.
    cell(row, column)->set("FormulaLocal", text);
    return false;
  }

 private:
  AutoObject cell(std::int32_t row, std::int32_t column) {
    return objectOf(sheet_->call("Cells", {row, column}), "Cells");
  }
  static AutoObject objectOf(const AutoValue& v, const char* member) {
    AutoObject o = v.object();
    if (!o) throw AutomationError(AutomationError::Reason::Failed, member, "no object");
    return o;
  }

  AutoObject book_;  // held while the sheet is used
  AutoObject sheet_;
};

class AutomationExcel final : public ExcelHost {
 public:
  explicit AutomationExcel(AutomationSystem& system) : system_(system) {}

  std::unique_ptr<Worksheet> worksheet(const std::string& path, const std::string& sheet) override {
    AutoObject book = system_.fileObject(path);
    AutoObject sheets = book ? book->get("Worksheets").object() : nullptr;
    if (!sheets) throw WorkbookError(WorkbookError::Reason::Unreadable, path);
    AutoValue item =
        sheet.empty() ? sheets->call("Item", {std::int32_t{1}}) : sheets->call("Item", {sheet});
    AutoObject ws = item.object();
    if (!ws) throw WorkbookError(WorkbookError::Reason::NoSheet, sheet.empty() ? path : sheet);
    return std::make_unique<AutomationWorksheet>(std::move(book), std::move(ws));
  }

  bool running() override { return !system_.processCommandLines("excel.exe").empty(); }

  AutoValue run(const std::string& macro, std::vector<AutoValue>& args) override {
    AutoObject excel = system_.runningObject("Excel.Application");
    std::vector<AutoValue> all;
    all.reserve(args.size() + 1);
    all.emplace_back(macro);
    all.insert(all.end(), args.begin(), args.end());
    CallOptions options;
    options.byReference = true;
    options.untilDone = true;  // a macro works as long as it needs
    AutoValue result = excel->invoke("Run", all, options);
    std::copy(all.begin() + 1, all.end(), args.begin());
    return result;
  }

 private:
  AutomationSystem& system_;
};

}  // namespace

std::unique_ptr<ExcelHost> makeAutomationExcel(AutomationSystem& system) {
  return std::make_unique<AutomationExcel>(system);
}

}  // namespace korvane::hosts
