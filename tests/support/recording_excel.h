// Test support: an Excel that notes what it is asked. Each worksheet opened is
// "open PATH|SHEET", each cell set "put ROW,COLUMN=TEXT" (kept, for the key
// column searches after it), each macro run "macro NAME" and its arguments,
// "s:" before a text and "d:" before a number. A cell's or range's value is
// "value of REFERENCE"; every macro's result text is two lines.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "hosts/excel.h"

namespace korvane::test {

class RecordingExcel final : public hosts::ExcelHost {
 public:
  explicit RecordingExcel(std::function<void(const std::string&)> note) : note_(std::move(note)) {}

  std::unique_ptr<hosts::Worksheet> worksheet(const std::string& path,
                                              const std::string& sheet) override {
    note_("open " + path + "|" + sheet);
    return std::make_unique<Sheet>(*this);
  }
  bool running() override { return true; }
  hosts::AutoValue run(const std::string& macro, std::vector<hosts::AutoValue>& args) override {
    std::string call = "macro " + macro;
    for (const hosts::AutoValue& a : args)
      call += std::string(std::holds_alternative<double>(a.v) ? ",d:" : ",s:") + a.text();
    note_(call);
    if (args.size() > 2)
      args[2] = hosts::AutoValue("crea,FROM MACRO\r\n   line 2");  // by reference
    return {};
  }

 private:
  using Cells = std::map<std::pair<std::int32_t, std::int32_t>, std::string>;

  struct Sheet final : hosts::Worksheet {
    RecordingExcel& excel;
    explicit Sheet(RecordingExcel& e) : excel(e) {}
    std::string value(const std::string& reference) override { return "value of " + reference; }
    std::string cellValue(std::int32_t row, std::int32_t column) override {
      auto it = excel.cells_.find({row, column});
      return it == excel.cells_.end() ? std::string() : it->second;
    }
    std::int32_t lastRow() override {
      return excel.cells_.empty() ? 0 : excel.cells_.rbegin()->first.first;
    }
    bool setFormulaLocal(std::int32_t row, std::int32_t column, const std::string& text) override {
      excel.note_("put " + std::to_string(row) + "," + std::to_string(column) + "=" + text);
      excel.cells_[{row, column}] = text;
      return true;  // as the workbook files do
    }
  };

  std::function<void(const std::string&)> note_;
  Cells cells_;
};

}  // namespace korvane::test
