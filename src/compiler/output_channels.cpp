// "script", "key-in" and "print" switch the compiled output to an AutoCAD
// script, a MicroStation key-in file or a print file; their "end" forms flush
// that channel and return to the MX input.
#include "compiler/compile_call.h"
#include "compiler/flush.h"
#include "shell/fs.h"

namespace korvane {

bool isChannelDirective(const std::string& k) {
  return k == "script" || k == "endscript" || k == "key-in" || k == "endkey-in" || k == "print" ||
         k == "endprint";
}

void channelDirective(CompileCall& call, const std::string& keyword) {
  RunContext& ctx = call.ctx;
  const std::string a1 = ctx.fields[1], a2 = ctx.fields[2];

  if (keyword == "endscript" || keyword == "endkey-in" || keyword == "endprint") {
    flushAndRun(ctx);
    if (ctx.stop.set) return;
    ctx.output.close();
    beginMxOutput(ctx);
    ctx.status(ctx.text("StatusBar1", "stat3"));
    return;
  }

  std::string announce, target, status;
  bool append = false;
  if (keyword == "script") {
    announce = ctx.text("Outputs", "s9");
    target = ctx.projectFolder + "tmpinput.scr";
    status = "AutoCAD";
  } else if (keyword == "key-in") {
    announce = ctx.text("Outputs", "s13");
    target = ctx.projectFolder + "tmpinput.key";
    status = "MicroStation";
  } else {
    announce = ctx.messages.format("Outputs", "s11", a1);
    target = ctx.projectFolder + a1;
    append = a2.compare(0, 4, "appe") == 0;
    status = "Print";
  }
  ctx.output.writeLine("   " + announce);
  flushAndRun(ctx);
  if (ctx.stop.set) return;
  ctx.output.close();
  if (keyword != "print") fs::removeFile(target);
  ctx.output.open(target, append);
  ctx.status(status);
}

}  // namespace korvane
