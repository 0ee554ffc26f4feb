// The directive table rows of the compiler's own directives. Inclusion and
// repetition, conditions and the output channels have files of their own.
#include "base/fs.h"
#include "compiler/compile_call.h"
#include "compiler/directive_call.h"
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
  CompileCall& call = d.compileCall();
  call.ctx.observers.notify([&](CompileObserver& w) { w.defaultsApplied(d.keywordText()); });
  applyAssignments(call.ctx, d.keywordText());
  applyAssignments(call.ctx, call.assignText);
  return R::Continue;
}

R repeatLine(DirectiveCall& d) {
  return d.compileCall().mode == CompileMode::Leading ? R::EndCall : R::Continue;
}

R endrepeatLine(DirectiveCall& d) {
  return d.compileCall().mode == CompileMode::Repeating ? R::EndCall : R::Continue;
}

R reset(DirectiveCall& d) {
  d.compileCall().ctx.vars.clear();
  return R::Continue;
}

R let(DirectiveCall& d) {
  RunContext& ctx = d.compileCall().ctx;
  const std::string& line = d.line();
  applyAssignments(ctx, line.size() > 4 ? std::string_view(line).substr(4) : std::string_view());
  return repeatIs(ctx, "skip") ? R::EndCall : R::Continue;
}

R condition(DirectiveCall& d) {
  conditionDirective(d.compileCall(), d.line());
  return repeatIs(d.compileCall().ctx, "skip") ? R::EndCall : R::Continue;
}

R insert(DirectiveCall& d) {
  insertDirective(d.compileCall(), d.argument(1));
  return R::Continue;
}

// Failures of kill and copyfile are ignored. kill deletes files, never folders.
R kill(DirectiveCall& d) {
  const std::string path = d.context().projectFolder() + d.argument(1);
  if (fs::fileExists(path)) fs::removeFile(path);
  d.compileCall().ctx.sources.forget();
  return R::Continue;
}

R copyfile(DirectiveCall& d) {
  const std::string& folder = d.context().projectFolder();
  fs::copyFile(folder + d.argument(1), folder + d.argument(2));
  d.compileCall().ctx.sources.forget();
  return R::Continue;
}

}  // namespace

void addCompilerDirectives(DirectiveTable& t) {
  // Directives that need nothing done before their handler.
  const std::pair<const char*, DirectiveHandler> plain[] = {
      {"fini", fini},   {"insert", insert},     {"option", nothing},
      {"rem", nothing}, {"repeat", repeatLine}, {"endrepeat", endrepeatLine},
      {"reset", reset}, {"let", let},           {"if", condition},
  };
  for (const auto& [keyword, handler] : plain) t.add(keyword, Preparation{}, handler);

  Preparation keywordText;
  keywordText.readKeywordText = true;
  t.add("default", keywordText, defaultLine);
  Preparation flush;
  flush.flushFirst = true;
  t.add("kill", flush, kill);
  t.add("copyfile", flush, copyfile);
  addChannelDirectives(t);
}

}  // namespace korvane
