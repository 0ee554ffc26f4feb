// What a function or an extended command may see and do while a compile runs:
// its arguments, the variables and expressions, the compiled output and its
// flush-and-run step, the hosts, the texts of the language file and the
// shared query state. The run context itself, and the compile pass's own
// bookkeeping, stay out of reach.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/message_key.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "hosts/mx.h"

namespace korvane {

struct RunContext;
struct QueryState;

class CallContext {
 public:
  // `asker`: the function or directive being handled, named in the progress
  // of the MX runs it asks for.
  explicit CallContext(RunContext& ctx, std::string_view asker = {});

  // Argument k (1-based) of the function call being dispatched.
  const std::string& arg(int k) const { return args_[k - 1]; }

  // Variables and expressions.
  std::string evaluate(std::string_view expr);
  // The value of a variable, or its name when it is not defined.
  std::string variable(std::string_view name) const;
  // The line with every |expr| replaced by its value, as the compile pass
  // substitutes the lines it reads.
  std::string substitute(std::string line);

  // The compiled output, and making it take effect.
  void writeLine(std::string_view line);
  void flushAndRun();

  // Texts of the language file.
  std::string text(MessageKey key) const;
  std::string format(MessageKey key, std::string_view a1 = {}, std::string_view a2 = {}) const;

  // Folders and hosts.
  const std::string& projectFolder() const;  // ends with a separator
  std::string mxProjectFolder() const;
  hosts::MxEngine* engine() const;
  // Asks the user for a text; false when nobody can be asked or the question
  // was cancelled.
  bool ask(const std::string& title, const std::string& prompt, std::string& answer) const;
  void writeLog(const std::string& line) const;

  // Likely mistakes, told by the front end (compiler/run_warnings.h): the
  // warning `key` (a "Check" text, %1 = a1, %2 = a2) at the line being
  // compiled and the column of `word`, with the name `suggest` gives as "did
  // you mean" (asked only for a new warning). Under --strict it ends the run.
  void warn(MessageKey key, std::string_view a1, std::string_view a2, std::string_view word,
            const std::function<std::string()>& suggest) const;
  // Argument k is used as a number: when it was a name with no value, says so.
  void numberExpected(int k) const;
  // A model a query's GENIO request made because it was not there.
  void modelMadeEmpty(const std::string& model);

  // The string labels that `repeat=each...` iterates.
  std::vector<std::string>& selection();

  // The shared answer of the model queries (compiler/extension/model_queries.h).
  QueryState& query();

  // The running AutoCAD's application object; a StopMessage when there is none.
  hosts::AutoObject autocad();
  // Excel (or the workbook files where no Excel runs); a run-time failure
  // naming `what` when this build has neither.
  hosts::ExcelHost& excel(std::string_view what) const;
  // Excel, or null when this build has none.
  hosts::ExcelHost* excelHost() const;
  // A file the run wrote besides its compiled output (a workbook), for the
  // run's summary.
  void fileWritten(const std::string& path);

 private:
  RunContext& ctx_;
  const std::string* args_;
  std::string_view asker_;
};

}  // namespace korvane
