#include "compiler/extension/call_context.h"

#include "base/texts/messages_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/compile_internals.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/flush.h"
#include "compiler/run_warnings.h"

namespace korvane {

CallContext::CallContext(RunContext& ctx, std::string_view asker)
    : ctx_(ctx), args_(internals(ctx).args.data()), asker_(asker) {}

std::string CallContext::evaluate(std::string_view expr) { return Evaluate(ctx_, expr); }
std::string CallContext::variable(std::string_view name) const {
  return variableOrName(ctx_, name);
}
std::string CallContext::substitute(std::string line) {
  substituteLine(ctx_, line);
  return line;
}

void CallContext::writeLine(std::string_view line) {
  if (ctx_.output.channel() == Channel::Print) internals(ctx_).sources.forget();
  ctx_.output.writeLine(line);
}
void CallContext::flushAndRun() { korvane::flushAndRun(ctx_, asker_); }

std::string CallContext::text(MessageKey key) const { return ctx_.text(key); }
std::string CallContext::format(MessageKey key, std::string_view a1, std::string_view a2) const {
  return ctx_.messages.format(key, a1, a2);
}

const std::string& CallContext::projectFolder() const { return ctx_.projectFolder; }
std::string CallContext::mxProjectFolder() const { return ctx_.mxProjectFolder(); }
hosts::MxEngine* CallContext::engine() const { return ctx_.engine; }
bool CallContext::ask(const std::string& title, const std::string& prompt,
                      std::string& answer) const {
  return ctx_.prompt && ctx_.prompt->ask(title, prompt, answer);
}
void CallContext::writeLog(const std::string& line) const { ctx_.writeLog(line); }

void CallContext::warn(MessageKey key, std::string_view a1, std::string_view a2,
                       std::string_view word, const std::function<std::string()>& suggest) const {
  korvane::warn(ctx_, key, a1, a2, word, suggest);
}
void CallContext::numberExpected(int k) const {
  if (internals(ctx_).unsetArgs & (std::uint32_t{1} << (k - 1))) warnUnsetName(ctx_, arg(k));
}
void CallContext::modelMadeEmpty(const std::string& model) {
  ctx_.warnings.emptyModels.insert(model);
}

std::vector<std::string>& CallContext::selection() { return internals(ctx_).selection; }
QueryState& CallContext::query() { return internals(ctx_).query; }

hosts::AutoObject CallContext::autocad() {
  if (!ctx_.autocad)
    throw StopMessage(texts::messages::kNoAutocad, "");  // no AutoCAD on this machine
  return ctx_.autocad(ctx_);
}

hosts::ExcelHost& CallContext::excel(std::string_view what) const {
  if (!ctx_.excel) throw RuntimeFailure(texts::runtime::kNotAvailable, std::string(what));
  return *ctx_.excel;
}
hosts::ExcelHost* CallContext::excelHost() const { return ctx_.excel; }
void CallContext::fileWritten(const std::string& path) { ctx_.filesWritten.insert(path); }

}  // namespace korvane
