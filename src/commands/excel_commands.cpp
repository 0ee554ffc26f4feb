// The commands that drive Excel: one cell put, a macro call, and the ditch
// macros of the Tabulon add-in.
#include <array>
#include <vector>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/messages_texts.h"
#include "base/texts/outputs_texts.h"
#include "commands/command_rows.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/directive_call.h"
#include "compiler/extension/model_queries.h"
#include "compiler/extension/trap.h"
#include "compiler/extension/workbook_path.h"

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

// A chainage the user gave: a text that is no number is a run-time failure
// naming that text.
double givenChainage(const std::string& text) {
  try {
    return conv::CDbl(text);
  } catch (const conv::ConversionError&) {
    throw foreignFailure(text);
  }
}

// Runs an add-in macro under the error trap; any failure (no Excel, no
// add-in, the macro failing) ends the run with the message that names the
// add-in.
AutoValue runAddIn(CallContext& ctx, const std::string& macro, std::vector<AutoValue>& args) {
  hosts::ExcelHost* excel = ctx.excelHost();
  const std::optional<AutoValue> result =
      excel ? trapped([&] { return std::optional(excel->run(macro, args)); }) : std::nullopt;
  if (!result) throw StopMessage(texts::messages::kExcelMacroFailed);
  return *result;
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

// xlput,WORKBOOK,SHEET,ROW,COLUMN,VALUE: the fields are expressions.
DirectiveResult xlput(DirectiveCall& d) {
  CallContext& ctx = d.context();
  std::array<std::string, 5> v;
  for (int i = 0; i < 5; ++i) v[i] = ctx.evaluate(d.argument(i + 1));
  const std::int32_t row = conv::CLng(v[2]), column = conv::CLng(v[3]);
  const std::string path = resolveWorkbook(ctx, v[0]);
  if (path.empty()) return DirectiveResult::Continue;
  if (ctx.excel("xlput").worksheet(path, v[1])->setFormulaLocal(row, column, v[4]))
    ctx.fileWritten(path);
  return DirectiveResult::Continue;
}

// xlmacro,MACRO,ARGUMENTS...: the macro of the running Excel gets the fields
// the line has, up to its last one, each an expression.
DirectiveResult xlmacro(DirectiveCall& d) {
  CallContext& ctx = d.context();
  hosts::ExcelHost* excel = ctx.excelHost();
  if (!excel || !excel->running()) throw StopMessage(texts::messages::kExcelNotRunning);
  std::array<std::string, 14> fields;
  int count = 0;
  for (int i = 0; i < 14; ++i) {
    if (!d.argument(i + 1).empty()) count = i + 1;
    fields[i] = ctx.evaluate(d.argument(i + 1));
  }
  std::vector<AutoValue> values(fields.begin() + 1, fields.begin() + std::max(count, 1));
  ctx.excel("xlmacro").run(fields[0], values);
  return DirectiveResult::Continue;
}

// ditch_list,MODEL: the ditch list of the workbook "basexls" as MX lines.
DirectiveResult ditchList(DirectiveCall& d) {
  CallContext& ctx = d.context();
  const std::string& model = d.argument(1);
  const std::string book = ctx.variable("basexls");
  const std::string id = fixedWidth(cp::upper(ctx.variable("id")), 2);
  const std::string mast = fixedWidth(ctx.variable("mast"), 4);
  const std::string left = fixedWidth(ctx.variable("ditchL"), 4);
  const std::string right = fixedWidth(ctx.variable("ditchR"), 4);
  const std::string from = ctx.variable("\xE1xs"), to = ctx.variable("\xE1xe");  // "áxs", "áxe"
  const std::string path = resolveWorkbook(ctx, book);
  if (path.empty()) return DirectiveResult::Continue;
  const double first = chainageOf(ctx, model, mast, 1);
  const double last = chainageOf(ctx, model, mast, -1);
  const double start = from == "?" ? first : givenChainage(from);
  const double end = to == "?" ? last : givenChainage(to);
  std::vector<AutoValue> args{path,  id,    std::string(), model, mast, left,
                              right, start, end,           first, last};
  runAddIn(ctx, "Tabulon.xla!Ditch.ConvertListToLinemode", args);
  // The macro's lines, then an empty line.
  writeLines(ctx, args[2].text());
  ctx.writeLine("");
  return DirectiveResult::Continue;
}

// ditch_pips,MODEL: the add-in draws the pips of the workbook "basexls".
DirectiveResult ditchPips(DirectiveCall& d) {
  CallContext& ctx = d.context();
  const std::string path = resolveWorkbook(ctx, ctx.variable("basexls"));
  if (path.empty()) return DirectiveResult::Continue;
  std::vector<AutoValue> args{path, cp::upper(d.argument(1))};
  runAddIn(ctx, "Tabulon.xla!Ditch.aaDrawPips", args);
  return DirectiveResult::Continue;
}

constexpr DirectiveRow kExcelCommandsRows[] = {
    {"xlmacro", {.announce = texts::outputs::kExcelMacroAnnounced, .flushFirst = true}, xlmacro},
    {"xlput", {.flushFirst = true}, xlput},
    {"ditch_list",
     {.flushFirst = true,
      .readKeywordText = true,
      .defaults = DefaultBlock::Plain,
      .assignments = {"\xE1xs=\"?\",\xE1xe=\"?\","},  // "áxs", "áxe"
      .assignKeywordText = true},
     ditchList},
    {"ditch_pips",
     {.flushFirst = true, .readKeywordText = true, .defaults = DefaultBlock::WithKeywordText},
     ditchPips},
};

}  // namespace

extern const DirectiveRows kExcelCommands = kExcelCommandsRows;

}  // namespace korvane::commands
