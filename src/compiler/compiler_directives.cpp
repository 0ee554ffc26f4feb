// The compiler's own directives and their rows. Inclusion and repetition,
// conditions and the output channels have files of their own.
#include "base/fs.h"
#include "compiler/compile_call.h"
#include "compiler/compile_internals.h"
#include "compiler/directives.h"
#include "compiler/expression.h"
#include "compiler/language.h"

namespace korvane {
namespace {

using R = DirectiveResult;

R fini(DirectiveCall&) { return R::EndCall; }
R nothing(DirectiveCall&) { return R::Continue; }

// A `default` line assigns its keyword text, then what the caller passed down.
R defaultLine(DirectiveCall& d) {
  CompileCall& call = compileCallOf(d);
  call.ctx.observers.notify([&](CompileObserver& w) { w.defaultsApplied(d.keywordText()); });
  applyAssignments(call.ctx, d.keywordText());
  applyAssignments(call.ctx, call.assignText);
  return R::Continue;
}

R repeatLine(DirectiveCall& d) {
  return compileCallOf(d).mode == CompileMode::Leading ? R::EndCall : R::Continue;
}

R endrepeatLine(DirectiveCall& d) {
  return compileCallOf(d).mode == CompileMode::Repeating ? R::EndCall : R::Continue;
}

R reset(DirectiveCall& d) {
  compileCallOf(d).ctx.vars.clear();
  return R::Continue;
}

R let(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  const std::string& line = d.line();
  applyAssignments(ctx, line.size() > 4 ? std::string_view(line).substr(4) : std::string_view());
  return repeatIs(ctx, "skip") ? R::EndCall : R::Continue;
}

R condition(DirectiveCall& d) {
  CompileCall& call = compileCallOf(d);
  conditionDirective(call, d.line());
  return repeatIs(call.ctx, "skip") ? R::EndCall : R::Continue;
}

R insert(DirectiveCall& d) {
  insertDirective(compileCallOf(d), d.argument(1));
  return R::Continue;
}

// Failures of kill and copyfile are ignored. kill deletes files, never folders.
R kill(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  const std::string path = ctx.projectFolder + d.argument(1);
  if (fs::fileExists(path)) fs::removeFile(path);
  internals(ctx).sources.forget();
  return R::Continue;
}

R copyfile(DirectiveCall& d) {
  RunContext& ctx = compileCallOf(d).ctx;
  fs::copyFile(ctx.projectFolder + d.argument(1), ctx.projectFolder + d.argument(2));
  internals(ctx).sources.forget();
  return R::Continue;
}

constexpr DirectiveRow kCompilerDirectivesRows[] = {
    {"fini", {}, fini},
    {"insert", {}, insert},
    {"option", {}, nothing},
    {"rem", {}, nothing},
    {"repeat", {}, repeatLine},
    {"endrepeat", {}, endrepeatLine},
    {"reset", {}, reset},
    {"let", {}, let},
    {"if", {}, condition},
    {"default", {.readKeywordText = true}, defaultLine},
    {"kill", {.flushFirst = true}, kill},
    {"copyfile", {.flushFirst = true}, copyfile},
};

}  // namespace

extern const DirectiveRows kCompilerDirectives = kCompilerDirectivesRows;

}  // namespace korvane
