#include "compiler/flush.h"

#include <optional>

#include "base/fs.h"
#include "base/text.h"
#include "base/texts/messages_texts.h"
#include "base/texts/outputs_texts.h"
#include "base/texts/runtime_texts.h"
#include "base/texts/status_bar_texts.h"
#include "compiler/compile_internals.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/failure_message.h"

namespace korvane {
namespace {

// An output that holds nothing but sentinel lines is never run.
bool onlySentinels(const std::string& fullName) {
  auto size = fs::fileSize(fullName);
  if (!size || *size >= 300) return false;
  auto data = fs::readFile(fullName);
  if (!data) return false;
  const std::string two =
      std::string(kSentinelCreate) + "\r\n" + std::string(kSentinelDelete) + "\r\n";
  const std::string three = std::string(kSentinelDelete) + "\r\n" + two;
  return *data == two || *data == three;
}

void reopenFresh(RunContext& ctx, const std::string& name) {
  fs::removeFile(name);
  try {
    ctx.output.open(name);
  } catch (const RuntimeFailure&) {
    // A fresh script that cannot be opened fails at its first line instead.
  }
}

// Line n (1-based) of a file, without its line end; empty when it has none.
std::string fileLine(const std::string& fullName, long n) {
  auto data = fs::readFile(fullName);
  if (!data || n < 1) return {};
  std::size_t pos = 0;
  for (long i = 1; i < n; ++i) {
    pos = data->find('\n', pos);
    if (pos == std::string::npos) return {};
    ++pos;
  }
  std::size_t end = data->find_first_of("\r\n", pos);
  return data->substr(pos, end == std::string::npos ? std::string::npos : end - pos);
}

// A run that stopped early leaves the sentinel model behind: it is deleted by
// a run of its own, from a file of its own, so that the failed input and its
// listing stay as the failed run left them.
void removeSentinel(RunContext& ctx, const hosts::MxRunResult& failed) {
  if (!ctx.engine) return;
  hosts::MxConfiguration& mx = ctx.engine->configuration();
  if (!mx.modelExists(kSentinelModel)) return;
  const std::string name = ctx.projectFolder + "tmpflag.txt";
  const auto listing = failed.listing.empty() ? std::nullopt : fs::readFile(failed.listing);
  if (!fs::writeFileAtomic(name, std::string(kSentinelDelete) + "\r\n")) return;
  mx.run("input", name);
  fs::removeFile(name);
  if (listing) fs::writeFileAtomic(failed.listing, *listing);
}

// A run stopped from outside: placed at the input line that wrote the MX line
// the engine stopped before, else where the compile stood.
RuntimeFailure interruptedRun(RunContext& ctx, const std::string& fullName, long mxLine) {
  CompileInternals& in = internals(ctx);
  RuntimeFailure f(texts::runtime::kInterrupted, ctx.save.inputName);
  f.trail = in.sourceMap.chain(ctx.output.originOfLine(mxLine));
  if (f.trail.empty()) f.trail = {{in.whereFile, in.whereLine}};
  f.located = true;
  f.file = f.trail.front().file;
  f.line = f.trail.front().line;
  f.lineText = inputLineText(f.file, f.line);
  f.mxLine = fileLine(fullName, mxLine);
  return f;
}

}  // namespace

std::string mxOutputName(const RunContext& ctx) {
  return ctx.projectFolder + std::string(channelFileName(Channel::Mx));
}

void beginMxOutput(RunContext& ctx) {
  ctx.output.open(mxOutputName(ctx));
  ctx.output.writeLine(kSentinelCreate);
}

// Copies the compiled MX input, without its sentinel lines, to the save files.
void copyToSaveFiles(RunContext& ctx, const std::string& compiled) {
  SaveFiles& s = ctx.save;
  if (!s.one && !s.separate) return;
  auto data = fs::readFile(compiled);
  if (!data) throw RuntimeFailure(texts::runtime::kCannotRead, compiled);
  std::string combined, separate;
  if (s.one && s.inputName != s.lastAnnounced) {
    combined += "\r\n";
    if (!s.lastAnnounced.empty()) combined += "\r\n\r\n";
    std::string marker = "   " + ctx.text(texts::outputs::kInputFile) + ":   " + s.inputName;
    combined += marker + "\r\n";
    s.lastCombinedLine = marker;
    s.lastAnnounced = s.inputName;
  }
  // A marker line (three blanks) equal to the line written last is not doubled.
  auto add = [](std::string& out, std::string& last, const std::string& line) {
    if (text::startsWith(line, "   ") && line == last) return;
    out += line + "\r\n";
    last = line;
  };
  std::size_t pos = 0;
  while (pos < data->size()) {
    std::size_t end = data->find_first_of("\r\n", pos);
    if (end == std::string::npos) end = data->size();
    std::string line = data->substr(pos, end - pos);
    pos = end;
    if (pos < data->size() && (*data)[pos] == '\r') ++pos;
    if (pos < data->size() && (*data)[pos] == '\n') ++pos;
    if (isSentinelLine(line)) continue;
    if (s.one) add(combined, s.lastCombinedLine, line);
    if (s.separate) add(separate, s.lastSeparateLine, line);
  }
  if (s.one && !fs::appendFile(s.combinedPath, combined))
    throw RuntimeFailure(texts::runtime::kCannotWrite, s.combinedPath);
  if (s.separate && !fs::appendFile(s.separatePath, separate))
    throw RuntimeFailure(texts::runtime::kCannotWrite, s.separatePath);
}

void saveCompiledOutput(RunContext& ctx) noexcept {
  try {
    copyToSaveFiles(ctx, ctx.output.fullName());
  } catch (const CompileFailure&) {
    // The failure that brought us here is the one reported.
  }
}

void runCompiledOutput(RunContext& ctx, std::string_view asker) {
  CompileInternals& in = internals(ctx);
  in.sources.forget();  // MX may write any file
  const std::string name = ctx.output.fullName();
  copyToSaveFiles(ctx, name);
  if (onlySentinels(name)) return;
  ctx.status(ctx.text(texts::status_bar::kMxRunning));
  ++in.engineRuns;
  if (ctx.onEngineRun) {
    // The line of the file being read (not of a default block it compiled).
    const std::vector<SourcePlace> chain = in.sourceMap.chainHere();
    const SourcePlace place = chain.empty() ? SourcePlace{} : chain.front();
    ctx.onEngineRun({in.engineRuns, asker, place.file, place.line});
  }
  hosts::MxRunResult result;
  if (ctx.engine) result = ctx.engine->configuration().run("input", name);
  ctx.status(ctx.text(texts::status_bar::kCompiling));
  if (result.interrupted) throw interruptedRun(ctx, name, result.errorLine);
  bool sentinelLeft = ctx.engine && ctx.engine->configuration().modelExists(kSentinelModel);
  if (sentinelLeft || !result.ok()) {
    ctx.status(ctx.text(texts::status_bar::kMxFailed));
    StopMessage stop(texts::messages::kMxStoppedEarly);
    stop.engineError = result.error;
    stop.whereFile = in.whereFile;
    stop.whereLine = in.whereLine;
    if (result.errorLine > 0) {
      stop.mxSource = in.sourceMap.chain(ctx.output.originOfLine(result.errorLine));
      stop.mxLine = fileLine(name, result.errorLine);
    }
    removeSentinel(ctx, result);
    throw stop;
  }
}

void flushAndRun(RunContext& ctx, std::string_view asker) {
  internals(ctx).sources.forget();  // MX, AutoCAD or MicroStation may write any file
  const std::string name = ctx.output.fullName();
  switch (channelOf(name)) {
    case Channel::Mx:
      ctx.output.writeLine(kSentinelDelete);
      ctx.output.close();
      try {
        runCompiledOutput(ctx, asker);
      } catch (const StopMessage&) {
        beginMxOutput(ctx);  // the output after a stopped run is a fresh one, as after any run
        throw;
      }
      beginMxOutput(ctx);
      break;
    case Channel::AutoCadScript:
      ctx.output.close();
      if (!ctx.players.script)
        throw StopMessage(texts::messages::kNoAutocad, "");  // no AutoCAD here
      ctx.players.script(ctx, name);
      reopenFresh(ctx, name);
      break;
    case Channel::MicroStationKeyin:
      ctx.output.close();
      if (!ctx.players.keyin)
        throw RuntimeFailure(texts::runtime::kNoMicroStation);  // no MicroStation here
      ctx.players.keyin(ctx, name);
      reopenFresh(ctx, name);
      break;
    case Channel::Print:
      break;  // a print file stays open and keeps receiving lines
  }
}

}  // namespace korvane
