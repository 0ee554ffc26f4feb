#include "compiler/flush.h"

#include "compiler/runtime_failure.h"
#include "compiler/text.h"
#include "shell/fs.h"

namespace korvane {
namespace {

// An output that holds nothing but sentinel lines is never run.
bool onlySentinels(const std::string& fullName) {
  auto size = fs::fileSize(fullName);
  if (!size || *size >= 300) return false;
  auto data = fs::readFile(fullName);
  if (!data) return false;
  const std::string two = std::string(kSentinelCreate) + "\r\n" + std::string(kSentinelDelete) + "\r\n";
  const std::string three = std::string(kSentinelDelete) + "\r\n" + two;
  return *data == two || *data == three;
}

void reopenFresh(RunContext& ctx, const std::string& name) {
  fs::removeFile(name);
  try {
    ctx.output.open(name);
  } catch (...) {
    // A fresh script that cannot be opened fails at its first line instead.
  }
}

}  // namespace

std::string mxOutputName(const RunContext& ctx) { return ctx.projectFolder + "tmpinput.txt"; }

void beginMxOutput(RunContext& ctx) {
  ctx.output.open(mxOutputName(ctx));
  ctx.output.writeLine(kSentinelCreate);
}

void runCompiledOutput(RunContext& ctx) {
  if (ctx.stop.set) return;
  const std::string name = ctx.output.fullName();
  if (onlySentinels(name)) return;
  ctx.status(ctx.text("StatusBar1", "stat3"));
  hosts::MxRunResult result;
  if (ctx.engine) result = ctx.engine->configuration().run("input", name);
  ctx.status(ctx.text("StatusBar1", "stat2"));
  bool sentinelLeft = ctx.engine && ctx.engine->configuration().modelExists(kSentinelModel);
  if (sentinelLeft || !result.ok()) {
    ctx.status(ctx.text("StatusBar1", "stat4"));
    std::string message = ctx.text("Messages", "s5");
    if (!result.ok()) message += "\n" + ctx.messages.format("Runtime", "engine", result.error);
    ctx.stop.raise(message);
  }
}

void flushAndRun(RunContext& ctx) {
  const std::string name = ctx.output.fullName();
  const std::string channel = name.size() >= 12 ? name.substr(name.size() - 12) : name;
  if (channel == "tmpinput.txt") {
    ctx.output.writeLine(kSentinelDelete);
    ctx.output.close();
    runCompiledOutput(ctx);
    beginMxOutput(ctx);
  } else if (channel == "tmpinput.scr") {
    ctx.output.close();
    if (ctx.players.script) ctx.players.script(ctx, name);
    else ctx.stop.raise(ctx.messages.format("Messages", "s15", ""));  // no AutoCAD here
    if (ctx.stop.set) return;
    reopenFresh(ctx, name);
  } else if (channel == "tmpinput.key") {
    ctx.output.close();
    if (!ctx.players.keyin) throw RuntimeFailure("mstation");  // no MicroStation here
    ctx.players.keyin(ctx, name);
    reopenFresh(ctx, name);
  }
  // Any other name is a print file: it stays open and keeps receiving lines.
}

}  // namespace korvane
