// "insert": inclusion of a file or section, once or repeated — counted, over
// the selection list ("each"), or over data rows ("single", "double").
#include <string>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/compile_call.h"
#include "compiler/compile_internals.h"
#include "compiler/directives.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {
namespace {

constexpr int kRowFields = 14;

struct Insert {
  CompileCall& call;
  std::string target;
  std::string assign;

  void compile(CompileMode mode) const {
    CompileFile(call.ctx, target, call.folder, call.name, assign, mode);
  }
};

// Reads the next data row of the caller's file: skips "##" lines; false at
// "end" (any case) or at the end of the file, which the observers hear of:
// every line after the rows was taken as one.
bool nextRow(CompileCall& call, std::string& row) {
  while (call.readLine(row)) {
    if (text::startsWith(row, "##")) continue;
    // The row is where the compile stands, for the warnings of its values.
    CompileInternals& in = internals(call.ctx);
    in.whereFile = call.reader.fullName();
    in.whereLine = call.reader.lineNumber();
    in.whereOwner = &call;
    return !cp::equalsIgnoreCase(text::trim(row), "end");
  }
  call.ctx.observers.notify([](CompileObserver& w) { w.rowsWithoutEnd(); });
  return false;
}

std::string fieldName(int i, const char* suffix) { return "f" + std::to_string(i) + suffix; }

// Splits a data row and assigns its fields to f1<suffix> .. f14<suffix>.
void assignRow(RunContext& ctx, const std::string& row, const char* suffix) {
  struct InRow {
    int& depth;
    explicit InRow(int& d) : depth(d) { ++depth; }
    ~InRow() { --depth; }
  } inRow(internals(ctx).rowDepth);
  splitFields(ctx, row);
  for (int i = 1; i <= kRowFields; ++i)
    applyAssignments(ctx, fieldName(i, suffix) + "=" + internals(ctx).fields[i - 1] + ",");
}

void countUp(RunContext& ctx, const std::string& r) {
  std::string count = conv::CStr(conv::Val(variableOrName(ctx, "count")) + 1);
  applyAssignments(ctx, "count=" + count + ",");
  applyAssignments(ctx, "repeat=" + r + ",");
}

void counted(const Insert& in, const std::string& r, bool eachMode) {
  RunContext& ctx = in.call.ctx;
  const std::int32_t n = conv::CLng(r);
  static const std::string kCount = "count", kRepeat = "repeat";
  // A count text with a comma, quote, bracket, bar or "=" goes through the
  // assignment list as it always has; a plain one is assigned directly.
  const bool plain = r.find_first_of(",\"()|=") == std::string::npos;
  for (std::int32_t i = 1; i <= n; ++i) {
    assignVariable(ctx, kCount, std::to_string(i));
    if (plain)
      assignVariable(ctx, kRepeat, r);
    else
      applyAssignments(ctx, "repeat=" + r + ",");
    if (eachMode) {
      const std::vector<std::string>& selection = internals(ctx).selection;
      if (static_cast<std::size_t>(i) > selection.size())
        throw RuntimeFailure(texts::runtime::kSubscript, "each(" + std::to_string(i) + ")");
      applyAssignments(ctx, "each=" + selection[i - 1] + ",");
    }
    in.compile(CompileMode::Repeating);
    if (repeatIs(ctx, "end")) break;
  }
}

// Each data row sets f1..f14 and compiles the repeated part once.
void singleRows(const Insert& in, const std::string& r) {
  RunContext& ctx = in.call.ctx;
  std::string row;
  bool going = true;
  while (nextRow(in.call, row)) {
    if (!going) continue;  // rows after repeat=end are read and ignored
    assignRow(ctx, row, "");
    countUp(ctx, r);
    in.compile(CompileMode::Repeating);
    if (repeatIs(ctx, "end")) going = false;
  }
}

// The first row gives start values f1_s..; each following row gives end
// values f1_e.. and compiles one segment, which then starts the next.
void doubleRows(const Insert& in, const std::string& r) {
  RunContext& ctx = in.call.ctx;
  std::string row;
  if (!nextRow(in.call, row)) return;
  assignRow(ctx, row, "_s");
  bool going = true;
  while (nextRow(in.call, row)) {
    if (!going) continue;
    assignRow(ctx, row, "_e");
    countUp(ctx, r);
    in.compile(CompileMode::Repeating);
    for (int i = 1; i <= kRowFields; ++i) {
      const std::string s = fieldName(i, "_s"), e = fieldName(i, "_e");
      if (variableOrName(ctx, s) != s) ctx.vars.set(s, "");
      if (variableOrName(ctx, e) != e) ctx.vars.set(s, variableOrName(ctx, e));
    }
    if (repeatIs(ctx, "end")) going = false;
  }
}

}  // namespace

void insertDirective(CompileCall& call, const std::string& fileSpec) {
  RunContext& ctx = call.ctx;
  Insert in{call, fileSpec, {}};
  if (text::endsWith(fileSpec, ";")) {
    in.target = text::rtrim(fileSpec.substr(0, fileSpec.size() - 1));
    ctx.vars.clear();
    in.assign = call.lastInsertAssign;  // carried over from the previous insert, deliberately
  } else if (text::endsWith(fileSpec, ".")) {
    in.target = text::rtrim(fileSpec.substr(0, fileSpec.size() - 1));
    in.assign = ",";
  } else {
    in.assign = call.readKeywordText();
  }
  call.lastInsertAssign = in.assign;

  applyAssignments(ctx, "repeat=," + in.assign);
  const std::string raw = variableOrName(ctx, "repeat");
  std::string r = raw;
  const bool eachMode = text::startsWith(raw, "each");
  if (eachMode) r = std::to_string(static_cast<long long>(conv::Val(raw.substr(4))));

  if (r != "single" && r != "double" && r < "0") {
    in.compile(CompileMode::Whole);
    return;
  }
  in.compile(CompileMode::Leading);
  applyAssignments(ctx, "count=0,");
  if (r == "single")
    singleRows(in, r);
  else if (r == "double")
    doubleRows(in, r);
  else
    counted(in, r, eachMode);
  in.compile(CompileMode::Trailing);
}

}  // namespace korvane
