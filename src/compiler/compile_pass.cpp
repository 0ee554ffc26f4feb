#include "compiler/compile_pass.h"

#include <algorithm>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/fs.h"
#include "base/text.h"
#include "base/texts/messages_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/compile_call.h"
#include "compiler/compile_internals.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/file_search.h"
#include "compiler/flush.h"
#include "compiler/language.h"
#include "compiler/run_warnings.h"

namespace korvane {
namespace {

// Keeps the source map's stack of files in step with the compile pass.
struct SourceFrame {
  SourceMap& map;
  SourceFrame(SourceMap& m, const std::string& file, long repetition) : map(m) {
    map.enter(file, repetition);
  }
  ~SourceFrame() { map.leave(); }
};

// Tells the observers that a file is read, and left again however the call ends.
struct ObservedFile {
  const CompileObservers& observers;
  ObservedFile(const CompileObservers& o, const std::string& file) : observers(o) {
    observers.notify([&](CompileObserver& w) { w.fileEntered(file); });
  }
  ~ObservedFile() {
    observers.notify([](CompileObserver& w) { w.fileLeft(); });
  }
};

struct DepthGuard {
  CompileInternals& in;
  explicit DepthGuard(CompileInternals& i) : in(i) { ++in.depth; }
  ~DepthGuard() {
    --in.depth;
    in.whereOwner = nullptr;  // the next line read names its file again
  }
};

void noteWhere(CompileInternals& in, const CompileCall& call) {
  if (in.whereOwner != &call) {
    in.whereFile = call.reader.fullName();
    in.whereOwner = &call;
  }
  in.whereLine = call.reader.lineNumber();
  in.sourceMap.atLine(in.whereLine);
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
  if (line.empty() || (line[0] != '#' && line[0] != 'i' && line[0] != 'I')) return;
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
  const bool blank = line.find_first_not_of(' ') == std::string::npos;
  if (ctx.output.channel() == Channel::Print)
    internals(ctx).sources.forget();  // it may be an input too
  if (!ctx.output.baseIsTmpinput() || !blank) ctx.output.writeLine(line);
  if (ctx.output.extensionIsScr() && blank) ctx.output.writeLine(line);
}

// Compiles the settings file's "[COMMAND:keyword]" section, whose `default`
// line assigns the command's defaults and then `passedDown`.
void defaultBlock(RunContext& ctx, const std::string& keyword, const std::string& passedDown) {
  CompileFile(ctx, ctx.settingsPath + " [COMMAND:" + keyword + "]", "", "", passedDown,
              CompileMode::Whole);
}

void prepare(CompileCall& call, DirectiveCall& d, const std::string& keyword,
             const Preparation& p) {
  RunContext& ctx = call.ctx;
  if (p.announce) ctx.output.writeLine("   " + ctx.messages.format(*p.announce, d.argument(1)));
  if (p.flushFirst) flushAndRun(ctx, keyword);
  if (p.readKeywordText) d.setKeywordText(call.readKeywordText());
  if (p.defaults != DefaultBlock::None) {
    ctx.observers.notify([](CompileObserver& w) { w.defaultBlockOpening(); });
    defaultBlock(ctx, keyword, p.defaults == DefaultBlock::WithKeywordText ? d.keywordText() : "");
  }
  for (const std::string_view list : p.assignments)
    if (!list.empty()) applyAssignments(ctx, replaceAll(std::string(list), "%1", d.argument(1)));
  if (p.assignKeywordText) applyAssignments(ctx, d.keywordText());
  if (p.defaults != DefaultBlock::None)
    ctx.observers.notify(
        [&](CompileObserver& w) { w.commandKeywordText(keyword, d.keywordText(), p.assignments); });
}

// The value of a variable named by a literal, or the name itself when it has
// none, read in place.
std::string_view valueOrName(const RunContext& ctx, std::string_view name) {
  const std::string* v = ctx.vars.find(name);
  return v ? std::string_view(*v) : name;
}

// Handles one line; returns true when the call must return.
bool compileLine(CompileCall& call, const std::string& raw) {
  RunContext& ctx = call.ctx;
  std::string& line = call.work;
  line.assign(raw);
  ctx.vars.purgeTemporaries();
  substituteLine(ctx, line);
  rewriteLine(line);
  splitFields(ctx, line);
  // A line that begins with three blanks is MX data, never a directive; no
  // keyword is longer than the longest one in the table.
  const std::string& first = internals(ctx).fields[0];
  const bool mayBeKeyword =
      !first.empty() && first.size() <= kLongestKeyword && !text::startsWith(line, "   ");
  char lowered[kLongestKeyword];
  if (mayBeKeyword) std::transform(first.begin(), first.end(), lowered, cp::toLower);
  const std::string_view keyword(lowered, mayBeKeyword ? first.size() : 0);
  const DirectiveRow* row = keyword.empty() ? nullptr : ctx.language->directives.find(keyword);
  if (!row) {
    ctx.observers.notify([&](CompileObserver& w) { w.plainLine(mayBeKeyword ? first : ""); });
    writePlainLine(ctx, line);
    return false;
  }
  DirectiveCall d(call, line, row->keyword);
  prepare(call, d, std::string(keyword), row->preparation);
  return row->handler(d) == DirectiveResult::EndCall;
}

// Adds the place where the compile stood to a failure that has none yet.
void locate(CompileFailure& f, const CompileCall& call) {
  if (f.located) return;
  f.located = true;
  f.file = call.reader.fullName();
  f.line = call.reader.lineNumber();
  f.lineText = call.rawLine;
  f.trail = internals(call.ctx).sourceMap.chainHere();
}

// Places a failure of opening a file at the line that inserted it: the place
// of the file's caller (none for a run entry).
void locateAtCaller(CompileFailure& f, SourceMap& sources) {
  f.located = true;
  std::vector<SourcePlace> chain = sources.chainHere();
  if (chain.size() < 2) return;
  chain.erase(chain.begin());
  f.file = chain.front().file;
  f.line = chain.front().line;
  f.trail = std::move(chain);
}

using Reentry = CompileInternals::CallStorage::Reentry;

// Notes where a call's first line to compile begins, for the next call at its
// depth; only a text the source cache holds can be read again from there.
void rememberStart(Reentry& again, const CompileCall& call, const std::string& fileSpec,
                   const std::string& baseFolder, const std::string& currentFile,
                   const FoundFile& found) {
  again.held = call.reader.held();
  if (!again.held) return;
  again.fileSpec = fileSpec;
  again.baseFolder = baseFolder;
  again.currentFile = currentFile;
  again.mode = static_cast<int>(call.mode);
  again.generation = internals(call.ctx).sources.generation();
  again.found = &found;
  again.start = call.reader.mark();
}

}  // namespace

bool repeatIs(RunContext& ctx, const char* word) { return valueOrName(ctx, "repeat") == word; }

void beginEntry(RunContext& ctx) {
  CompileInternals& in = internals(ctx);
  in.tempCounter = 0;
  in.engineRuns = 0;
  in.sources.forget();  // files may have changed since the last entry
  in.whereFile.clear();
  in.sourceMap.clearNodes();
}

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

DirectiveCall::DirectiveCall(CompileCall& call, std::string line, std::string_view keyword)
    : call_(call), line_(std::move(line)), context_(call.ctx, keyword) {
  const CompileInternals& in = internals(call.ctx);
  const auto& fields = in.fields;
  used_ = static_cast<int>(std::min(fields.size(), in.fieldsUsed));
  while (used_ > 0 && fields[used_ - 1].empty()) --used_;
  for (int k = 0; k < used_; ++k) fields_[k] = fields[k];
}

bool DirectiveCall::readLine(std::string& line) { return call_.readLine(line); }

void CompileFile(RunContext& ctx, const std::string& fileSpec, const std::string& baseFolder,
                 const std::string& currentFile, const std::string& assignText, CompileMode mode) {
  CompileInternals& in = internals(ctx);
  DepthGuard guard(in);

  while (in.callStorage.size() <= static_cast<std::size_t>(in.depth)) in.callStorage.emplace_back();
  CompileInternals::CallStorage& storage = in.callStorage[in.depth];
  CompileCall call{ctx,  storage.reader,           storage.folder, storage.name, storage.assignText,
                   mode, storage.lastInsertAssign, false,          storage.raw,  storage.work};
  call.assignText = assignText;
  call.lastInsertAssign.clear();
  // The file stays open no longer than the call.
  struct Closing {
    LineReader& reader;
    ~Closing() { reader.close(); }
  } closing{call.reader};
  std::string label;
  call.name = fileSpec;
  if (std::size_t b = fileSpec.find('['); b != std::string::npos) {
    label = fileSpec.substr(b);
    call.name = text::rtrim(fileSpec.substr(0, b));
  }
  // A section of the current file: a section it inserts is in the same file.
  if (call.name.empty()) call.name = currentFile;
  const std::string& name = call.name;
  if (in.depth > kMaxCompileDepth)
    throw RuntimeFailure(texts::runtime::kInsertsTooDeep, std::to_string(kMaxCompileDepth), name);

  // The same file, named from the same place, as the last call at this depth
  // (the next pass of a repeated part): while the source cache holds what it
  // held then, the file is where it was found then and its text the same.
  auto& again = storage.again;
  const bool reentering = again.held && again.generation == in.sources.generation() &&
                          again.mode == static_cast<int>(mode) && again.fileSpec == fileSpec &&
                          again.baseFolder == baseFolder && again.currentFile == currentFile;
  // Held by the source cache: used only before the first line compiles, since
  // a line may make the cache forget.
  const FoundFile& found = reentering ? *again.found : findInputFile(ctx, name, baseFolder);
  if (reentering)
    call.reader.reopen(found.fullName, again.held, again.start);
  else if (!found.found || !call.reader.open(found.fullName, &in.sources)) {
    StopMessage missing(texts::messages::kFileNotFound, found.shownName);
    missing.searched = searchPlaces(ctx, name, baseFolder);
    throw missing;  // the caller adds the place of the insert
  }
  call.folder = found.folder;
  // A repeated part is read once a pass; `count` has just been set to the pass.
  const long pass =
      mode == CompileMode::Repeating ? static_cast<long>(conv::Val(valueOrName(ctx, "count"))) : 0;
  SourceFrame frame(in.sourceMap, found.fullName, pass);

  try {
    if (!reentering) {
      if (!label.empty() && !seekLine(call, label)) {
        ctx.observers.notify([&](CompileObserver& w) { w.sectionMissing(found.fullName, label); });
        StopMessage missing(texts::messages::kSectionNotFound, found.shownName, label);
        missing.searchedFile = found.fullName;
        locateAtCaller(missing, in.sourceMap);
        throw missing;
      }
      if (!label.empty())
        ctx.observers.notify([&](CompileObserver& w) { w.sectionFound(found.fullName, label); });
      const char* seek = mode == CompileMode::Repeating  ? "repeat"
                         : mode == CompileMode::Trailing ? "endrepeat"
                                                         : nullptr;
      if (seek && !seekLine(call, seek)) throw StopMessage(texts::messages::kLineNotFound, seek);
      rememberStart(again, call, fileSpec, baseFolder, currentFile, found);
    }
    ObservedFile observed(ctx.observers, found.fullName);
    std::string& line = storage.read;
    for (;;) {
      call.rawLine.clear();  // a line the reader refuses has no text to show
      if (!call.readLine(line)) return;
      call.rawLine = line;
      noteWhere(in, call);
      // Stopped from outside: at the line it would compile next.
      if (ctx.interrupted && ctx.interrupted->load(std::memory_order_relaxed))
        throw RuntimeFailure(texts::runtime::kInterrupted, ctx.save.inputName);
      if (call.reader.controlColumn() || call.reader.lostColumn()) [[unlikely]]
        warnCharacters(ctx, call.reader);
      ctx.observers.notify([&](CompileObserver& w) { w.lineRead(call.reader.lineNumber(), line); });
      if (!line.empty() && line[0] == '[') return;
      if (compileLine(call, line)) return;
    }
  } catch (CompileFailure& f) {
    locate(f, call);
    throw;
  } catch (...) {
    RuntimeFailure f = foreignFailure();  // anything else goes on as it is
    locate(f, call);
    throw f;
  }
}

}  // namespace korvane
