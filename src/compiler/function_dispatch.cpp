#include "compiler/function_dispatch.h"

#include "base/codepage.h"
#include "base/texts/runtime_texts.h"
#include "compiler/expression.h"
#include "compiler/extension/call_context.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/language.h"

namespace korvane {

bool isNameCharacter(char c) {
  // "0123456789aábcdeéfghiíjklmnoóöőpqrstuúüűvwxyz_" in Windows-1250
  static const std::string_view kAlphabet =
      "0123456789a\xE1"
      "bcde\xE9"
      "fghi\xED"
      "jklmno\xF3\xF6\xF5"
      "pqrstu\xFA\xFC\xFB"
      "vwxyz_";
  return kAlphabet.find(cp::toLower(c)) != std::string_view::npos;
}

std::string FunctionDispatch(RunContext& ctx, const std::string& expr, std::size_t& open,
                             std::size_t close) {
  if (open >= expr.size() || close >= expr.size() || close <= open || expr[open] != '(' ||
      expr[close] != ')')
    throw RuntimeFailure(texts::runtime::kUnbalancedParentheses, expr);
  std::size_t start = open;
  while (start > 0 && isNameCharacter(expr[start - 1])) --start;
  std::string inner = expr.substr(open + 1, close - open - 1);
  if (start == open) return Evaluate(ctx, inner);  // a bare parenthesis groups

  std::string name = cp::lower(std::string_view(expr).substr(start, open - start));
  open = start;
  evaluateArguments(ctx, inner);
  const FunctionHandler handler = ctx.language->functions.find(name);
  if (!handler) {
    ctx.observers.notify([&](CompileObserver& w) { w.unknownFunction(name); });
    return {};
  }
  CallContext call(ctx, name);
  return handler(call);
}

}  // namespace korvane
