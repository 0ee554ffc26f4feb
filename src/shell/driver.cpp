#include "shell/driver.h"

#include "base/conversions.h"
#include "base/text.h"
#include "compiler/compile_pass.h"
#include "compiler/expression.h"
#include "compiler/failure_message.h"
#include "compiler/flush.h"
#include "shell/not_found.h"

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

namespace {

// Starts an input file: keeps only the "g_" variables, removes a sentinel
// model left by a failed run, and opens the MX input with the sentinel
// creation line.
void beginInputFile(RunContext& ctx) {
  std::string carried;
  for (const auto& [name, value] : ctx.vars.entries())
    if (text::startsWith(name, "g_")) carried += name + "=\"" + value + "\",";
  ctx.vars.clear();
  beginEntry(ctx);
  applyAssignments(ctx, carried);
  // A "g_" variable that an earlier entry left keeps its value.
  for (const auto& [name, value] : ctx.presets)
    if (!text::startsWith(name, "g_") || !ctx.vars.find(name)) ctx.vars.set(name, value);

  ctx.output.setName(mxOutputName(ctx));
  if (ctx.engine && ctx.engine->configuration().modelExists(kSentinelModel)) {
    ctx.output.open(mxOutputName(ctx));
    ctx.output.writeLine(kSentinelDelete);
    ctx.output.close();
    ctx.engine->configuration().run("input", mxOutputName(ctx));
  }
  beginMxOutput(ctx);
}

// Ends the entry after a failure: closes the output, keeping what was compiled
// in the save files, and describes the failure. A message ends the MX input
// as a finished compile would, without running it; a run-time failure leaves
// it where the compile stood.
Stopped endAfterFailure(RunContext& ctx, const CompileFailure& f) {
  try {
    const bool mx = ctx.output.isOpen() && ctx.output.isMxChannel();
    if (mx && f.kind() == CompileFailure::Kind::Message) ctx.output.writeLine(kSentinelDelete);
    ctx.output.close();
    if (mx) saveCompiledOutput(ctx);
  } catch (const CompileFailure&) {
    ctx.output.close();  // the first failure is the one to show
  }
  return Stopped{f, describeFailure(ctx.messages, f), notFoundDetails(ctx.messages, f)};
}

}  // namespace

std::optional<Stopped> ApplyOneFile(RunContext& ctx, const std::string& entryText) {
  const RunEntry entry = parseRunEntry(entryText);
  ctx.save.inputName = entryText;
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
  } catch (const CompileFailure& f) {
    return endAfterFailure(ctx, f);
  } catch (...) {
    return endAfterFailure(ctx, foreignFailure());  // anything else goes on as it is
  }
  return std::nullopt;
}

}  // namespace korvane
