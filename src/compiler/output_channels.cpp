// "script", "key-in" and "print" switch the compiled output to an AutoCAD
// script, a MicroStation key-in file or a print file; their "end" forms flush
// that channel and return to the MX input. The preparation writes the
// announcing line and runs the flush before the handlers switch.
#include "base/fs.h"
#include "base/texts/outputs_texts.h"
#include "base/texts/status_bar_texts.h"
#include "compiler/compile_call.h"
#include "compiler/compile_internals.h"
#include "compiler/flush.h"
#include "compiler/language.h"

namespace korvane {
namespace {

using R = DirectiveResult;

void switchTo(RunContext& ctx, Channel channel, const std::string& target, bool append,
              const std::string& status) {
  ctx.output.close();
  internals(ctx).sources.forget();  // the target may be a file the run reads
  if (channel != Channel::Print) fs::removeFile(target);
  ctx.output.open(target, append);
  ctx.status(status);
}

R script(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  switchTo(ctx, Channel::AutoCadScript, ctx.projectFolder + channelFileName(Channel::AutoCadScript),
           false, "AutoCAD");
  return R::Continue;
}

R keyin(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  switchTo(ctx, Channel::MicroStationKeyin,
           ctx.projectFolder + channelFileName(Channel::MicroStationKeyin), false, "MicroStation");
  return R::Continue;
}

R print(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  switchTo(ctx, Channel::Print, ctx.projectFolder + d.argument(1),
           d.argument(2).compare(0, 4, "appe") == 0, "Print");
  return R::Continue;
}

R backToMx(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  ctx.output.close();
  beginMxOutput(ctx);
  ctx.status(ctx.text(texts::status_bar::kMxRunning));
  return R::Continue;
}

// The announcing line comes before the flush.
constexpr DirectiveRow kChannelDirectivesRows[] = {
    {"script", {.announce = texts::outputs::kScriptAnnounced, .flushFirst = true}, script},
    {"key-in", {.announce = texts::outputs::kKeyinAnnounced, .flushFirst = true}, keyin},
    {"print", {.announce = texts::outputs::kPrintAnnounced, .flushFirst = true}, print},
    {"endscript", {.flushFirst = true}, backToMx},
    {"endkey-in", {.flushFirst = true}, backToMx},
    {"endprint", {.flushFirst = true}, backToMx},
};

}  // namespace

extern const DirectiveRows kChannelDirectives = kChannelDirectivesRows;

}  // namespace korvane
