// "script", "key-in" and "print" switch the compiled output to an AutoCAD
// script, a MicroStation key-in file or a print file; their "end" forms flush
// that channel and return to the MX input. The preparation writes the
// announcing line and runs the flush before the handlers switch.
#include "base/fs.h"
#include "compiler/compile_call.h"
#include "compiler/directive_call.h"
#include "compiler/directives.h"
#include "compiler/flush.h"
#include "compiler/language.h"

namespace korvane {
namespace {

using R = DirectiveResult;

void switchTo(RunContext& ctx, Channel channel, const std::string& target, bool append,
              const std::string& status) {
  ctx.output.close();
  ctx.sources.forget();  // the target may be a file the run reads
  if (channel != Channel::Print) fs::removeFile(target);
  ctx.output.open(target, append);
  ctx.status(status);
}

R script(DirectiveCall& d) {
  RunContext& ctx = d.compileCall().ctx;
  switchTo(ctx, Channel::AutoCadScript, ctx.projectFolder + channelFileName(Channel::AutoCadScript),
           false, "AutoCAD");
  return R::Continue;
}

R keyin(DirectiveCall& d) {
  RunContext& ctx = d.compileCall().ctx;
  switchTo(ctx, Channel::MicroStationKeyin,
           ctx.projectFolder + channelFileName(Channel::MicroStationKeyin), false, "MicroStation");
  return R::Continue;
}

R print(DirectiveCall& d) {
  RunContext& ctx = d.compileCall().ctx;
  switchTo(ctx, Channel::Print, ctx.projectFolder + d.argument(1),
           d.argument(2).compare(0, 4, "appe") == 0, "Print");
  return R::Continue;
}

R backToMx(DirectiveCall& d) {
  RunContext& ctx = d.compileCall().ctx;
  ctx.output.close();
  beginMxOutput(ctx);
  ctx.status(ctx.text("StatusBar1", "stat3"));
  return R::Continue;
}

Preparation announced(const char* outputsKey) {
  Preparation p;
  p.announce = outputsKey;
  p.flushFirst = true;
  return p;
}

}  // namespace

void addChannelDirectives(DirectiveTable& t) {
  Preparation flush;
  flush.flushFirst = true;
  t.add("script", announced("s9"), script);
  t.add("key-in", announced("s13"), keyin);
  t.add("print", announced("s11"), print);
  t.add("endscript", flush, backToMx);
  t.add("endkey-in", flush, backToMx);
  t.add("endprint", flush, backToMx);
}

}  // namespace korvane
