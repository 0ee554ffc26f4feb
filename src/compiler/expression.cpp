#include "compiler/expression.h"

#include <cmath>
#include <cstdio>

#include "base/conversions.h"
#include "base/text.h"
#include "compiler/compile_failure.h"
#include "compiler/field_scanner.h"
#include "compiler/function_dispatch.h"

namespace korvane {
namespace {

// Substitutions per line before a value that keeps producing bars is refused.
constexpr int kMaxSubstitutions = 100000;

double arithmetic(char op, double l, double r, const std::string& expr) {
  double v = 0;
  switch (op) {
    case '+':
      v = l + r;
      break;
    case '-':
      v = l - r;
      break;
    case '*':
      v = l * r;
      break;
    case '/':
      if (r == 0) throw RuntimeFailure("div0", expr);
      v = l / r;
      break;
    case '^':
      if (l == 0 && r < 0) throw RuntimeFailure("div0", expr);
      if (l < 0 && r != std::floor(r)) throw RuntimeFailure("badarg", expr);
      v = std::pow(l, r);
      break;
  }
  if (!std::isfinite(v)) throw RuntimeFailure("overflow", expr);
  return v;
}

}  // namespace

std::string variableOrName(const RunContext& ctx, std::string_view name) {
  const std::string* v = ctx.vars.find(name);
  return v ? *v : std::string(name);
}

std::string newTemporaryName(RunContext& ctx) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "zTMP%05d", static_cast<int>(++ctx.tempCounter));
  return buf;
}

std::string Evaluate(RunContext& ctx, std::string_view expr) {
  std::string e(expr);
  return Evaluate(ctx, e);
}

std::string Evaluate(RunContext& ctx, std::string& expr) {
  // Each operator and each parenthesis is one level deeper: a bound keeps a
  // pathological line from running the stack out.
  struct Level {
    int& depth;
    explicit Level(int& d) : depth(d) {
      if (++depth > kMaxExpressionDepth) {
        --depth;
        throw RuntimeFailure("exprdepth", std::to_string(kMaxExpressionDepth));
      }
    }
    ~Level() { --depth; }
  } level(ctx.expressionDepth);
  expr = text::trim(expr);
  // A quoted text is taken literally, everything between the outer quotes.
  if (!expr.empty() && expr.front() == '"' && expr.back() == '"')
    return expr.size() >= 2 ? expr.substr(1, expr.size() - 2) : std::string();
  if (expr.find('|') != std::string::npos) substituteLine(ctx, expr);

  // Function calls, innermost-last: each becomes a temporary holding its value.
  for (std::size_t close; (close = expr.rfind(')')) != std::string::npos;) {
    std::size_t open = matchingParen(expr, close);
    if (open == std::string::npos) throw RuntimeFailure("paren", expr);
    std::string value = FunctionDispatch(ctx, expr, open, close);
    std::string temp = newTemporaryName(ctx);
    applyAssignments(ctx, temp + "=\"" + value + "\",");
    expr.replace(open, close - open + 1, temp);
  }

  // The loosest operator whose last occurrence is not the final character.
  static const char kOperators[] = "&+-*/^";
  for (const char* op = kOperators; *op; ++op) {
    std::size_t at = expr.rfind(*op);
    if (at == std::string::npos || at + 1 >= expr.size()) continue;
    std::string leftText = expr.substr(0, at), rightText = expr.substr(at + 1);
    std::string l = Evaluate(ctx, leftText);
    std::string r = Evaluate(ctx, rightText);
    if (*op == '&') return l + r;
    return conv::CStr(arithmetic(*op, conv::Val(l), conv::Val(r), expr));
  }
  return variableOrName(ctx, expr);
}

void applyAssignments(RunContext& ctx, std::string_view list) {
  std::size_t pos = 0;
  while (pos < list.size()) {
    std::size_t eq = list.find('=', pos);
    if (eq == std::string_view::npos) break;
    std::string name = text::trim(list.substr(pos, eq - pos));
    pos = eq + 1;
    std::string field = nextField(list, pos);
    std::string value = Evaluate(ctx, field);
    ctx.vars.set(name, std::move(value));
  }
}

void substituteLine(RunContext& ctx, std::string& line) {
  int rounds = 0;
  for (std::size_t a; (a = line.find('|')) != std::string::npos;) {
    std::size_t b = line.find('|', a + 1);
    if (b == std::string::npos) throw RuntimeFailure("bar");
    if (++rounds > kMaxSubstitutions) throw RuntimeFailure("bar");
    std::string inner = line.substr(a + 1, b - a - 1);
    std::string value = Evaluate(ctx, inner);
    line.replace(a, b - a + 1, value);
    if (line.size() > 16 * 65535) throw RuntimeFailure("linelen", std::to_string(16 * 65535));
  }
}

void splitFields(RunContext& ctx, std::string_view line) {
  ctx.fields.fill(std::string());
  std::size_t pos = 0, n = 0;
  do {
    if (n == ctx.fields.size()) throw RuntimeFailure("fields");
    std::string f = text::trim(nextField(line, pos));
    if (f.size() >= 2 && f.front() == '|' && f.back() == '|') {
      std::string inner = f.substr(1, f.size() - 2);
      f = Evaluate(ctx, inner);
    }
    bool isIf = f == "if";
    ctx.fields[n++] = std::move(f);
    if (isIf) break;
  } while (pos < line.size());
}

void evaluateArguments(RunContext& ctx, std::string_view argumentText) {
  ctx.args.fill(std::string());
  std::size_t pos = 0;
  int n = 0;
  while (pos < argumentText.size() || (n == 0 && pos == 0)) {
    if (n == static_cast<int>(ctx.args.size())) throw RuntimeFailure("args");
    std::string f = nextField(argumentText, pos);
    // A call inside the argument clears and refills the shared array: slots this
    // call filled before it are lost, as the language has always behaved.
    std::string value = Evaluate(ctx, f);
    ctx.args[n++] = std::move(value);
    if (pos > argumentText.size()) break;
  }
  ctx.argCount = n;
}

}  // namespace korvane
