// labelmove: copies listed strings of one model into another under labels
// permuted by `order`. The engine dumps the strings as GENIO text into a
// query file; its records, relabelled, become a GENIO block of the target.
#include "base/codepage.h"
#include "base/fs.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "commands/command_rows.h"
#include "commands/label_order.h"
#include "commands/query_file.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/directive_call.h"
#include "compiler/extension/model_queries.h"

namespace korvane::commands {
namespace {

constexpr const char* kLabelmoveFile = "tmplabelmove.txt";

// Writes one "019" line for each label of the list that follows the keyword
// text, up to a line "end" or the end of the file. "##" lines are comments;
// the others pass through line substitution, so labels may come from variables.
void writeSelection(DirectiveCall& d) {
  CallContext& ctx = d.context();
  std::string line;
  while (d.readLine(line)) {
    if (text::startsWith(line, "##")) continue;
    const std::string label = ctx.substitute(line);
    if (cp::equalsIgnoreCase(text::trim(label), "end")) break;
    ctx.writeLine("019," + label + ",4=1");
  }
}

// Banner and listing lines of the engine's report are not GENIO records.
bool isRecord(const std::string& line) {
  return !text::startsWith(line, "   ") && cp::upper(text::left(line, 5)) != "GENIO";
}

// labelmove,SOURCE,TARGET
DirectiveResult labelmove(DirectiveCall& d) {
  CallContext& ctx = d.context();
  const std::string &source = d.argument(1), &target = d.argument(2);
  const std::string orderText = ctx.evaluate("order");
  const std::optional<LabelOrder> order = parseLabelOrder(orderText);
  if (!order) throw RuntimeFailure(texts::runtime::kLabelOrder, orderText);

  checkGenioSource(ctx, source);
  QueryFile file(fs::join(ctx.projectFolder(), kLabelmoveFile));
  ctx.writeLine("over," + file.path() + ",genio");
  ctx.writeLine("geni," + source);
  writeSelection(d);
  const std::vector<std::string> lines = file.run(ctx);
  ctx.writeLine("geni," + target);
  for (std::size_t i = 1; i < lines.size(); ++i) {  // the first line is the banner
    const std::string line = relabelHeader(lines[i], *order);
    if (isRecord(line)) ctx.writeLine(line);
  }
  file.remove();
  ctx.flushAndRun();
  return DirectiveResult::Continue;
}

constexpr DirectiveRow kLabelmoveCommandRows[] = {
    {"labelmove",
     {.flushFirst = true, .readKeywordText = true, .defaults = DefaultBlock::WithKeywordText},
     labelmove},
};

}  // namespace

extern const DirectiveRows kLabelmoveCommand = kLabelmoveCommandRows;

}  // namespace korvane::commands
