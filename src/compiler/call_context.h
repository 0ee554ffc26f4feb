// What a function or an extended command may see and do while a compile runs:
// its arguments, the variables and expressions, the compiled output and its
// flush-and-run step, the hosts, the texts of the language file and the
// shared query state. The compile pass's own bookkeeping stays out of reach.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/run_context.h"

namespace korvane {

class CallContext {
 public:
  explicit CallContext(RunContext& ctx) : ctx_(ctx) {}

  // Argument k (1-based) of the function call being dispatched; the count.
  const std::string& arg(int k) const { return ctx_.args[k - 1]; }
  int argCount() const { return ctx_.argCount; }

  // Variables and expressions.
  std::string evaluate(std::string_view expr);
  void assign(std::string_view list);  // "name=expr,name=expr,"
  // The value of a variable, or its name when it is not defined.
  std::string variable(std::string_view name) const;
  // The line with every |expr| replaced by its value, as the compile pass
  // substitutes the lines it reads.
  std::string substitute(std::string line);

  // The compiled output, and making it take effect.
  void writeLine(std::string_view line);
  void flushAndRun();

  // Texts of the language file.
  std::string text(const char* section, const char* key) const { return ctx_.text(section, key); }
  std::string format(std::string_view section, std::string_view key, std::string_view a1 = {},
                     std::string_view a2 = {}) const {
    return ctx_.messages.format(section, key, a1, a2);
  }

  // Folders and hosts.
  const std::string& projectFolder() const { return ctx_.projectFolder; }  // ends with a separator
  std::string mxProjectFolder() const { return ctx_.mxProjectFolder(); }
  const std::string& settingsPath() const { return ctx_.settingsPath; }
  hosts::MxEngine* engine() const { return ctx_.engine; }
  InputPrompt* prompt() const { return ctx_.prompt; }
  void writeLog(const std::string& line) const { ctx_.writeLog(line); }
  void status(const std::string& text) const { ctx_.status(text); }

  // The string labels that `repeat=each...` iterates.
  std::vector<std::string>& selection() { return ctx_.selection; }

  // The shared answer of the model queries (status, point record, point count).
  QueryState& query() { return ctx_.query; }

  // The running AutoCAD's application object; a StopMessage when there is none.
  hosts::AutoObject autocad();
  // Excel (or the workbook files where no Excel runs); a run-time failure
  // naming `what` when this build has neither.
  hosts::ExcelHost& excel(std::string_view what) const;
  // Excel, or null when this build has none.
  hosts::ExcelHost* excelHost() const { return ctx_.excel; }
  // A file the run wrote besides its compiled output (a workbook), for the
  // run's summary.
  void fileWritten(const std::string& path) { ctx_.filesWritten.insert(path); }

 private:
  RunContext& ctx_;
};

}  // namespace korvane
