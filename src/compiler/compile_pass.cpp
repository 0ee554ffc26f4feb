#include "compiler/compile_pass.h"

#include "compiler/compile_call.h"
#include "compiler/expression.h"
#include "compiler/file_search.h"
#include "compiler/flush.h"
#include "compiler/runtime_failure.h"
#include "shell/text.h"
#include "shell/codepage.h"
#include "shell/conversions.h"
#include "shell/fs.h"

namespace korvane {
namespace {

struct DepthGuard {
  RunContext& ctx;
  explicit DepthGuard(RunContext& c) : ctx(c) { ++ctx.depth; }
  ~DepthGuard() {
    --ctx.depth;
    ctx.whereOwner = nullptr;  // the next line read names its file again
  }
};

void noteWhere(RunContext& ctx, const CompileCall& call) {
  if (ctx.whereOwner != &call) {
    ctx.whereFile = call.reader.fullName();
    ctx.whereOwner = &call;
  }
  ctx.whereLine = call.reader.lineNumber();
}

// Reads on until a line that begins with `prefix` (ignoring case).
bool seekLine(CompileCall& call, const std::string& prefix) {
  std::string line;
  while (call.readLine(line))
    if (cp::startsWithIgnoreCase(line, prefix)) return true;
  return false;
}

// The "##", "#" and "if " rewrites of a line.
void rewriteLine(std::string& line) {
  if (text::startsWith(line, "##")) {
    line = "rem";
  } else if (text::startsWith(line, "#")) {
    std::string rest = line.substr(1);
    if (cp::startsWithIgnoreCase(rest, "if "))
      line = "if," + rest.substr(3);
    else
      line = "let," + rest + ",";
  }
  if (cp::startsWithIgnoreCase(line, "if ")) line = "if," + line.substr(3);
}

// Blank lines are dropped from the MX input and kept in an AutoCAD script
// (where they are Enter keystrokes). Both tests apply one after the other.
void writePlainLine(RunContext& ctx, const std::string& line) {
  const fs::NameParts out = fs::splitName(ctx.output.fullName());
  const bool blank = text::trim(line).empty();
  if (out.base != "tmpinput" || !blank) ctx.output.writeLine(line);
  if (out.ext == "scr" && blank) ctx.output.writeLine(line);
}

// Handles one line; returns true when the call must return.
bool compileLine(CompileCall& call, std::string line) {
  RunContext& ctx = call.ctx;
  ctx.vars.purgeTemporaries();
  substituteLine(ctx, line);
  rewriteLine(line);
  ctx.currentLine = line;
  splitFields(ctx, line);
  const std::string keyword =
      text::startsWith(line, "   ") ? std::string() : cp::lower(ctx.fields[0]);
  const std::string arg1 = ctx.fields[1], arg2 = ctx.fields[2];

  if (keyword == "fini") return true;
  if (keyword == "insert") {
    insertDirective(call, arg1);
  } else if (keyword == "default") {
    applyAssignments(ctx, call.readKeywordText());
    applyAssignments(ctx, call.assignText);
  } else if (keyword == "option" || keyword == "rem") {
  } else if (keyword == "repeat") {
    if (call.mode == CompileMode::Leading) return true;
  } else if (keyword == "endrepeat") {
    if (call.mode == CompileMode::Repeating) return true;
  } else if (keyword == "reset") {
    ctx.vars.clear();
  } else if (keyword == "let") {
    applyAssignments(ctx, line.size() > 4 ? std::string_view(line).substr(4) : std::string_view());
    return repeatIs(ctx, "skip");
  } else if (keyword == "if") {
    conditionDirective(call, line);
    return repeatIs(ctx, "skip");
  } else if (isExtendedCommand(keyword)) {
    extendedCommand(call, keyword);
  } else if (keyword == "xlmacro") {
    xlmacroDirective(call);
  } else if (keyword == "xlput") {
    xlputDirective(call);
  } else if (keyword == "kill") {
    flushAndRun(ctx);
    fs::removeFile(ctx.projectFolder + arg1);
  } else if (keyword == "copyfile") {
    flushAndRun(ctx);
    fs::copyFile(ctx.projectFolder + arg1, ctx.projectFolder + arg2);
  } else if (isChannelDirective(keyword)) {
    channelDirective(call, keyword);
  } else {
    writePlainLine(ctx, line);
  }
  return false;
}

// Adds the place where the compile stood to a failure that has none yet.
void locate(RuntimeFailure& f, const CompileCall& call) {
  if (f.located) return;
  f.located = true;
  f.file = call.reader.fullName();
  f.line = call.reader.lineNumber();
  f.lineText = call.rawLine;
}

RuntimeFailure fromConversion(const conv::ConversionError& e) {
  switch (e.code()) {
    case conv::ConvErrc::Overflow:
      return RuntimeFailure("overflow", e.what());
    case conv::ConvErrc::TypeMismatch:
      return RuntimeFailure("mismatch", e.what());
    case conv::ConvErrc::InvalidPattern:
      return RuntimeFailure("pattern", e.what());
    default:
      return RuntimeFailure("badarg", e.what());
  }
}

}  // namespace

bool repeatIs(RunContext& ctx, const char* word) { return variableOrName(ctx, "repeat") == word; }

std::string CompileCall::readKeywordText() {
  std::string line;
  if (!readLine(line)) return ",";
  std::string last = text::trim(line);
  std::string result = last;
  while (text::endsWith(last, ",") && readLine(line)) {
    last = text::trim(line);
    result += last;
  }
  return result + ",";
}

void CompileFile(RunContext& ctx, const std::string& fileSpec, const std::string& baseFolder,
                 const std::string& currentFile, const std::string& assignText, CompileMode mode) {
  if (ctx.stop.set) return;
  DepthGuard guard(ctx);

  CompileCall call{ctx, {}, {}, {}, assignText, mode};
  std::string label;
  call.name = fileSpec;
  if (std::size_t b = fileSpec.find('['); b != std::string::npos) {
    label = fileSpec.substr(b);
    call.name = text::rtrim(fileSpec.substr(0, b));
  }
  const std::string name = call.name.empty() ? currentFile : call.name;
  if (ctx.depth > kMaxCompileDepth)
    throw RuntimeFailure("depth", std::to_string(kMaxCompileDepth), name);

  FoundFile found = findInputFile(ctx, name, baseFolder);
  if (!found.found) {
    ctx.stop.raise(ctx.messages.format("Messages", "s9", found.shownName));
    return;
  }
  call.folder = found.folder;
  if (!call.reader.open(found.fullName)) {
    ctx.stop.raise(ctx.messages.format("Messages", "s9", found.shownName));
    return;
  }

  try {
    if (!label.empty() && !seekLine(call, label)) {
      ctx.stop.raise(ctx.messages.format("Messages", "s13", found.shownName, label));
      return;
    }
    const char* seek = mode == CompileMode::Repeating  ? "repeat"
                       : mode == CompileMode::Trailing ? "endrepeat"
                                                       : nullptr;
    if (seek && !seekLine(call, seek)) {
      ctx.stop.raise(ctx.messages.format("Messages", "s14", seek));
      return;
    }
    std::string line;
    while (!ctx.stop.set) {
      if (ctx.interrupted && ctx.interrupted->load()) throw RuntimeFailure("interrupted");
      if (!call.readLine(line)) return;
      ctx.currentLine = call.rawLine = line;
      noteWhere(ctx, call);
      if (!line.empty() && line[0] == '[') return;
      if (compileLine(call, line)) return;
    }
  } catch (RuntimeFailure& f) {
    locate(f, call);
    throw;
  } catch (const conv::ConversionError& e) {
    RuntimeFailure f = fromConversion(e);
    locate(f, call);
    throw f;
  }
}

}  // namespace korvane
