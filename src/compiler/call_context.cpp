#include "compiler/call_context.h"

#include "compiler/compile_failure.h"
#include "compiler/expression.h"
#include "compiler/flush.h"

namespace korvane {

std::string CallContext::evaluate(std::string_view expr) { return Evaluate(ctx_, expr); }
void CallContext::assign(std::string_view list) { applyAssignments(ctx_, list); }
std::string CallContext::variable(std::string_view name) const {
  return variableOrName(ctx_, name);
}
std::string CallContext::substitute(std::string line) {
  substituteLine(ctx_, line);
  return line;
}
void CallContext::writeLine(std::string_view line) {
  if (ctx_.output.channel() == Channel::Print) ctx_.sources.forget();
  ctx_.output.writeLine(line);
}
void CallContext::flushAndRun() { korvane::flushAndRun(ctx_); }

hosts::ExcelHost& CallContext::excel(std::string_view what) const {
  if (!ctx_.excel) throw RuntimeFailure("notavail", std::string(what));
  return *ctx_.excel;
}

hosts::AutoObject CallContext::autocad() {
  if (!ctx_.autocad) throw StopMessage("s15", "");  // no AutoCAD on this machine
  return ctx_.autocad(ctx_);
}

}  // namespace korvane
