#include "compiler/expression.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "base/conversions.h"
#include "base/text.h"
#include "compiler/compile_failure.h"
#include "compiler/field_scanner.h"
#include "compiler/function_dispatch.h"

namespace korvane {
namespace {

// Substitutions per line before a value that keeps producing bars is refused.
constexpr int kMaxSubstitutions = 100000;

double arithmetic(char op, double l, double r, std::string_view expr) {
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
      if (r == 0) throw RuntimeFailure("div0", std::string(expr));
      v = l / r;
      break;
    case '^':
      if (l == 0 && r < 0) throw RuntimeFailure("div0", std::string(expr));
      if (l < 0 && r != std::floor(r)) throw RuntimeFailure("badarg", std::string(expr));
      v = std::pow(l, r);
      break;
  }
  if (!std::isfinite(v)) throw RuntimeFailure("overflow", std::string(expr));
  return v;
}

}  // namespace

void checkTextLength(std::size_t length) {
  if (length > kMaxTextLength) throw RuntimeFailure("textlen", std::to_string(kMaxTextLength));
}

std::string variableOrName(const RunContext& ctx, std::string_view name) {
  const std::string* v = ctx.vars.find(name);
  return v ? *v : std::string(name);
}

std::string newTemporaryName(RunContext& ctx) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "zTMP%05d", static_cast<int>(++ctx.tempCounter));
  return buf;
}

namespace {

// Each operator and each parenthesis is one level deeper: a bound keeps a
// pathological line from running the stack out.
class Level {
 public:
  explicit Level(int& d) : depth_(d) {
    if (++depth_ > kMaxExpressionDepth) {
      --depth_;
      throw RuntimeFailure("exprdepth", std::to_string(kMaxExpressionDepth));
    }
  }
  ~Level() { --depth_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

 private:
  int& depth_;
};

std::string_view trimmed(std::string_view s) {
  const std::size_t b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return {};
  return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

bool isQuoted(std::string_view e) { return !e.empty() && e.front() == '"' && e.back() == '"'; }
std::string unquoted(std::string_view e) {
  return e.size() >= 2 ? std::string(e.substr(1, e.size() - 2)) : std::string();
}

std::string operands(RunContext& ctx, std::string_view expr);

// A text that could be a variable's name: a letter or "_" first, then name
// characters. Numbers and texts with blanks or signs are values of their own.
bool looksLikeName(std::string_view e) {
  if (e.empty() || (e[0] >= '0' && e[0] <= '9') || isTemporaryName(e)) return false;
  for (char c : e)
    if (!isNameCharacter(c)) return false;
  return true;
}

// Counts the |...| stretches being evaluated, for the observers.
struct InBars {
  int& depth;
  explicit InBars(int& d) : depth(d) { ++depth; }
  ~InBars() { --depth; }
};

// A part of an expression that holds no "|" and no ")" any more: its value
// needs no substitution and no function call, so it is read in place.
std::string part(RunContext& ctx, std::string_view text) {
  Level level(ctx.expressionDepth);
  const std::string_view e = trimmed(text);
  if (isQuoted(e)) return unquoted(e);
  return operands(ctx, e);
}

// Splits at the last occurrence of the loosest operator that is not the final
// character; a text with none is a variable or stands for itself.
std::string operands(RunContext& ctx, std::string_view expr) {
  static const char kOperators[] = "&+-*/^";
  // The last place of each operator, found in one pass over the text.
  std::size_t last[6];
  std::fill(std::begin(last), std::end(last), std::string_view::npos);
  for (std::size_t i = 0; i < expr.size(); ++i) {
    switch (expr[i]) {
      case '&':
        last[0] = i;
        break;
      case '+':
        last[1] = i;
        break;
      case '-':
        last[2] = i;
        break;
      case '*':
        last[3] = i;
        break;
      case '/':
        last[4] = i;
        break;
      case '^':
        last[5] = i;
        break;
      default:
        break;
    }
  }
  for (int k = 0; k < 6; ++k) {
    const std::size_t at = last[k];
    if (at == std::string_view::npos || at + 1 >= expr.size()) continue;
    std::string l = part(ctx, expr.substr(0, at));
    std::string r = part(ctx, expr.substr(at + 1));
    if (k == 0) {
      checkTextLength(l.size() + r.size());
      return l += r;
    }
    return conv::CStr(arithmetic(kOperators[k], conv::Val(l), conv::Val(r), expr));
  }
  if (const std::string* v = ctx.vars.find(expr)) return *v;
  if (!ctx.observers.empty() && ctx.rowDepth == 0 && looksLikeName(expr)) {
    const bool inBars = ctx.barDepth > 0;
    ctx.observers.notify([&](CompileObserver& w) { w.unassignedName(std::string(expr), inBars); });
  }
  return std::string(expr);
}

}  // namespace

std::string Evaluate(RunContext& ctx, std::string& expr) {
  Level level(ctx.expressionDepth);
  const std::string_view t = trimmed(expr);
  if (t.size() != expr.size()) expr = std::string(t);
  // A quoted text is taken literally, everything between the outer quotes.
  if (isQuoted(expr)) return unquoted(expr);
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
  return operands(ctx, expr);
}

std::string Evaluate(RunContext& ctx, std::string_view expr) {
  // A whole number (a repetition's count) is a variable of that name or
  // stands for itself, and is never a name the diagnostics ask about.
  if (!expr.empty() &&
      std::all_of(expr.begin(), expr.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    const std::string* v = ctx.vars.find(expr);
    return v ? *v : std::string(expr);
  }
  // A bare word is a variable or stands for itself: read in place, without
  // the copy the general case edits.
  if (!expr.empty() && expr.find_first_of("|()\"&+-*/^ ") == std::string_view::npos)
    return operands(ctx, expr);
  std::string e(expr);
  return Evaluate(ctx, e);
}

namespace {

// The next pair of "name=expr,name=expr,": false when no "=" follows `pos`.
bool nextAssignment(std::string_view list, std::size_t& pos, std::string& name,
                    std::string_view& expr) {
  if (pos >= list.size()) return false;
  const std::size_t eq = list.find('=', pos);
  if (eq == std::string_view::npos) return false;
  name = text::trim(list.substr(pos, eq - pos));
  pos = eq + 1;
  expr = nextFieldView(list, pos);
  return true;
}

}  // namespace

void applyAssignments(RunContext& ctx, std::string_view list) {
  std::size_t pos = 0;
  std::string name;
  std::string_view expr;
  while (nextAssignment(list, pos, name, expr)) assignVariable(ctx, name, expr);
}

void assignVariable(RunContext& ctx, const std::string& name, std::string_view value) {
  ctx.vars.set(name, Evaluate(ctx, value));
}

std::vector<std::string> assignmentNames(std::string_view list) {
  std::vector<std::string> names;
  std::size_t pos = 0;
  std::string name;
  std::string_view expr;
  while (nextAssignment(list, pos, name, expr)) names.push_back(name);
  return names;
}

void substituteLine(RunContext& ctx, std::string& line) {
  int rounds = 0;
  for (std::size_t a; (a = line.find('|')) != std::string::npos;) {
    std::size_t b = line.find('|', a + 1);
    if (b == std::string::npos) throw RuntimeFailure("bar");
    if (++rounds > kMaxSubstitutions) throw RuntimeFailure("bar");
    std::string inner = line.substr(a + 1, b - a - 1);
    InBars bars(ctx.barDepth);
    std::string value = Evaluate(ctx, inner);
    line.replace(a, b - a + 1, value);
    if (line.size() > kMaxTextLength)
      throw RuntimeFailure("linelen", std::to_string(kMaxTextLength));
  }
}

void splitFields(RunContext& ctx, std::string_view line) {
  std::size_t pos = 0, n = 0;
  do {
    if (n == ctx.fields.size()) throw RuntimeFailure("fields");
    const std::string_view f = trimmed(nextFieldView(line, pos));
    std::string& field = ctx.fields[n++];
    if (f.size() >= 2 && f.front() == '|' && f.back() == '|') {
      InBars bars(ctx.barDepth);
      field = Evaluate(ctx, f.substr(1, f.size() - 2));
    } else
      field.assign(f);  // keeps the slot's storage
    if (field == "if") break;
  } while (pos < line.size());
  for (; n < ctx.fields.size(); ++n) ctx.fields[n].clear();
}

void evaluateArguments(RunContext& ctx, std::string_view argumentText) {
  // Arguments are often plain words (model names, labels), even inside |...|.
  const int bars = ctx.barDepth;
  ctx.barDepth = 0;
  struct Restore {
    int& depth;
    int value;
    ~Restore() { depth = value; }
  } restore{ctx.barDepth, bars};
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
