// The commands that drive Excel: one cell put, a macro call, and the ditch
// macros of the Tabulon add-in.
#include <vector>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "commands/commands.h"
#include "compiler/compile_failure.h"
#include "compiler/model_queries.h"
#include "compiler/workbook_path.h"

namespace korvane::commands {
namespace {

using hosts::AutoValue;

// A fixed-width text: cut to `width`, or padded with blanks.
std::string fixedWidth(std::string s, std::size_t width) {
  s.resize(width, ' ');
  return s;
}

// The chainage of point n of a string (1 the first, -1 the last).
double chainageOf(CallContext& ctx, const std::string& model, const std::string& label,
                  std::int32_t n) {
  loadPoint(ctx, model, text::rtrim(label), n);  // the label without its padding
  return ctx.query().record.num[4];
}

// Runs an add-in macro; any failure (no Excel, no add-in, the macro failing)
// ends the run with the message that names the add-in.
AutoValue runAddIn(CallContext& ctx, const std::string& macro, std::vector<AutoValue>& args) {
  hosts::ExcelHost* excel = ctx.excelHost();
  if (!excel) throw StopMessage("s12");
  try {
    return excel->run(macro, args);
  } catch (const hosts::AutomationError&) {
    throw StopMessage("s12");
  }
}

// Writes a text of several lines as lines of the compiled output.
void writeLines(CallContext& ctx, const std::string& text) {
  std::size_t at = 0;
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n", at);
    ctx.writeLine(text.substr(at, end == std::string::npos ? std::string::npos : end - at));
    if (end == std::string::npos) return;
    at = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
  }
}

}  // namespace

void xlput(CallContext& ctx, const std::string& workbook, const std::string& sheet,
           std::int32_t row, std::int32_t column, const std::string& value) {
  const std::string path = resolveWorkbook(ctx, workbook);
  if (path.empty()) return;
  if (ctx.excel("xlput").worksheet(path, sheet)->setFormulaLocal(row, column, value))
    ctx.fileWritten(path);
}

void xlmacro(CallContext& ctx, const std::string& macro, const std::string* args, int count) {
  std::vector<AutoValue> values(args, args + count);
  ctx.excel("xlmacro").run(macro, values);
}

void ditchList(CallContext& ctx, const std::string& model) {
  const std::string book = ctx.variable("basexls");
  const std::string id = fixedWidth(cp::upper(ctx.variable("id")), 2);
  const std::string mast = fixedWidth(ctx.variable("mast"), 4);
  const std::string left = fixedWidth(ctx.variable("ditchL"), 4);
  const std::string right = fixedWidth(ctx.variable("ditchR"), 4);
  const std::string from = ctx.variable("\xE1xs"), to = ctx.variable("\xE1xe");  // "áxs", "áxe"
  const std::string path = resolveWorkbook(ctx, book);
  if (path.empty()) return;
  const double first = chainageOf(ctx, model, mast, 1);
  const double last = chainageOf(ctx, model, mast, -1);
  const double start = from == "?" ? first : conv::CDbl(from);
  const double end = to == "?" ? last : conv::CDbl(to);
  std::vector<AutoValue> args{path,  id,    std::string(), model, mast, left,
                              right, start, end,           first, last};
  runAddIn(ctx, "Tabulon.xla!Ditch.ConvertListToLinemode", args);
  // The macro's lines, then an empty line.
  writeLines(ctx, args[2].text());
  ctx.writeLine("");
}

void ditchPips(CallContext& ctx, const std::string& model) {
  const std::string path = resolveWorkbook(ctx, ctx.variable("basexls"));
  if (path.empty()) return;
  std::vector<AutoValue> args{path, cp::upper(model)};
  runAddIn(ctx, "Tabulon.xla!Ditch.aaDrawPips", args);
}

}  // namespace korvane::commands
