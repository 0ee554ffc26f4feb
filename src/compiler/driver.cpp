#include "compiler/driver.h"

#include "compiler/compile_pass.h"
#include "compiler/expression.h"
#include "compiler/flush.h"
#include "compiler/runtime_failure.h"
#include "shell/text.h"
#include "shell/conversions.h"

namespace korvane {

RunEntry parseRunEntry(const std::string& entry) {
  RunEntry e;
  std::size_t at = entry.find(" [");
  if (at == std::string::npos) {
    e.path = entry;
    return e;
  }
  e.path = entry.substr(0, at);
  std::size_t close = entry.find(']', at + 2);
  e.section = entry.substr(at + 2, close == std::string::npos ? std::string::npos : close - at - 2);
  return e;
}

std::string entryFileSpec(const RunEntry& entry) {
  return entry.section.empty() ? entry.path : entry.path + " [" + entry.section + "]";
}

void beginInputFile(RunContext& ctx) {
  std::string carried;
  for (const auto& [name, value] : ctx.vars.entries())
    if (text::startsWith(name, "g_")) carried += name + "=\"" + value + "\",";
  ctx.vars.clear();
  ctx.tempCounter = 0;
  ctx.labelSeed = "S000";
  applyAssignments(ctx, carried);

  ctx.whereFile.clear();
  ctx.output.setName(mxOutputName(ctx));
  if (ctx.engine && ctx.engine->configuration().modelExists(kSentinelModel)) {
    ctx.output.open(mxOutputName(ctx));
    ctx.output.writeLine(kSentinelDelete);
    ctx.output.close();
    ctx.engine->configuration().run("input", mxOutputName(ctx));
  }
  beginMxOutput(ctx);
}

std::string failureMessage(const RunContext& ctx, const FailureReport& f) {
  std::string m = ctx.text("Runtime", "title") + ": " + f.description;
  if (!f.file.empty())
    m += "\n" + ctx.messages.format("Runtime", "where", f.file, std::to_string(f.line));
  if (!f.lineText.empty()) m += "\n" + ctx.messages.format("Runtime", "text", f.lineText);
  return m;
}

// Closes the output after a failure, keeping what was compiled in the save files.
void closeAfterFailure(RunContext& ctx) {
  const bool mx = ctx.output.isOpen() && ctx.output.isMxChannel();
  ctx.output.close();
  if (mx) saveCompiledOutput(ctx);
}

bool ApplyOneFile(RunContext& ctx, const std::string& entryText) {
  const RunEntry entry = parseRunEntry(entryText);
  ctx.save.inputName = entryText;
  ctx.engineRuns = 0;
  try {
    beginInputFile(ctx);
    CompileFile(ctx, entryFileSpec(entry), "", "", "", CompileMode::Whole);
    if (ctx.output.isMxChannel()) {
      ctx.output.writeLine(kSentinelDelete);
      ctx.output.close();
      runCompiledOutput(ctx);
    } else {
      // An input that ends inside a script, key-in or print block still has
      // that block played.
      flushAndRun(ctx);
      ctx.output.close();
    }
  } catch (const RuntimeFailure& f) {
    closeAfterFailure(ctx);
    FailureReport report{ctx.messages.format("Runtime", f.key(), f.arg1(), f.arg2()), f.file,
                         f.line, f.lineText};
    ctx.failure = report;
    ctx.stop.raise(failureMessage(ctx, report));
  } catch (const conv::ConversionError& e) {
    closeAfterFailure(ctx);
    FailureReport report{ctx.messages.format("Runtime", "mismatch", e.what()), {}, 0, {}};
    ctx.failure = report;
    ctx.stop.raise(failureMessage(ctx, report));
  }
  return !ctx.stop.set;
}

}  // namespace korvane
