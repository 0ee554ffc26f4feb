// Preparing and calling the extended commands and the Excel directives.
#include <array>

#include "commands/commands.h"
#include "compiler/compile_call.h"
#include "compiler/expression.h"
#include "compiler/flush.h"
#include "shell/conversions.h"

namespace korvane {
namespace {

constexpr std::array<std::string_view, 7> kCommands = {
    "labelmove",        "trimsection", "drawxsection", "superelevation",
    "earthwork->excel", "ditch_list",  "ditch_pips"};

// Compiles the settings file's "[COMMAND:keyword]" section, whose `default`
// line assigns the command's defaults and then `passedDown`.
void defaultBlock(RunContext& ctx, const std::string& keyword, const std::string& passedDown) {
  CompileFile(ctx, ctx.settingsPath + " [COMMAND:" + keyword + "]", "", "", passedDown,
              CompileMode::Whole);
}

}  // namespace

bool isExtendedCommand(const std::string& keyword) {
  for (auto k : kCommands)
    if (k == keyword) return true;
  return false;
}

void extendedCommand(CompileCall& call, const std::string& keyword) {
  RunContext& ctx = call.ctx;
  const std::string a1 = ctx.fields[1], a2 = ctx.fields[2];
  flushAndRun(ctx);
  if (ctx.stop.set) return;
  const std::string keywordText = call.readKeywordText();

  if (keyword == "labelmove") {
    defaultBlock(ctx, keyword, keywordText);
    if (!ctx.stop.set) commands::labelmove(ctx, a1, a2, call.reader);
  } else if (keyword == "trimsection") {
    defaultBlock(ctx, keyword, "");
    applyAssignments(ctx, "mask1=\"????\",mask2=\"????\",mask3=\"????\",mask4=\"????\",");
    applyAssignments(ctx, "mask5=\"????\",mask6=\"????\",mask7=\"????\",mask8=\"????\",");
    applyAssignments(ctx, keywordText);
    if (!ctx.stop.set) commands::trimsection(ctx, a1);
  } else if (keyword == "drawxsection") {
    applyAssignments(ctx, keywordText);
    commands::drawxsection(ctx, a1, a2, call.reader);
  } else if (keyword == "superelevation") {
    defaultBlock(ctx, keyword, keywordText);
    applyAssignments(ctx, "mref=" + a1 + ",");
    if (!ctx.stop.set) commands::superelevation(ctx, a1, call.reader, call.reader.fullName());
  } else if (keyword == "earthwork->excel") {
    defaultBlock(ctx, keyword, keywordText);
    if (!ctx.stop.set) commands::earthworkToExcel(ctx);
  } else if (keyword == "ditch_list") {
    defaultBlock(ctx, keyword, "");
    applyAssignments(ctx, "\xE1xs=\"?\",\xE1xe=\"?\",");  // "áxs", "áxe"
    applyAssignments(ctx, keywordText);
    if (!ctx.stop.set) commands::ditchList(ctx, a1);
  } else if (keyword == "ditch_pips") {
    defaultBlock(ctx, keyword, keywordText);
    if (!ctx.stop.set) commands::ditchPips(ctx, a1);
  }
}

void xlmacroDirective(CompileCall& call) {
  RunContext& ctx = call.ctx;
  std::array<std::string, 14> fields;
  for (int i = 0; i < 14; ++i) fields[i] = ctx.fields[i + 1];
  ctx.output.writeLine("   " + ctx.text("Outputs", "s10"));
  flushAndRun(ctx);
  if (ctx.stop.set) return;
  if (!commands::processRunning("excel.exe")) {
    ctx.stop.raise(ctx.text("Messages", "s8"));
    return;
  }
  for (auto& f : fields) f = Evaluate(ctx, f);
  commands::xlmacro(ctx, fields[0], fields.data() + 1, 13);
}

void xlputDirective(CompileCall& call) {
  RunContext& ctx = call.ctx;
  std::array<std::string, 5> f;
  for (int i = 0; i < 5; ++i) f[i] = ctx.fields[i + 1];
  flushAndRun(ctx);
  if (ctx.stop.set) return;
  for (auto& v : f) v = Evaluate(ctx, v);
  commands::xlput(ctx, f[0], f[1], conv::CLng(f[2]), conv::CLng(f[3]), f[4]);
}

}  // namespace korvane
