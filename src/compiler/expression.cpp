#include "compiler/expression.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/compile_internals.h"
#include "compiler/expression_tree.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/field_scanner.h"
#include "compiler/function_dispatch.h"
#include "compiler/run_warnings.h"

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
      if (r == 0) throw RuntimeFailure(texts::runtime::kDivisionByZero, std::string(expr));
      v = l / r;
      break;
    case '^':
      if (l == 0 && r < 0) throw RuntimeFailure(texts::runtime::kDivisionByZero, std::string(expr));
      if (l < 0 && r != std::floor(r))
        throw RuntimeFailure(texts::runtime::kBadArgument, std::string(expr));
      v = std::pow(l, r);
      break;
  }
  if (!std::isfinite(v)) throw RuntimeFailure(texts::runtime::kOverflow, std::string(expr));
  return v;
}

}  // namespace

std::string variableOrName(const RunContext& ctx, std::string_view name) {
  const std::string* v = ctx.vars.find(name);
  return v ? *v : std::string(name);
}

std::string newTemporaryName(RunContext& ctx) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "zTMP%05d", static_cast<int>(++internals(ctx).tempCounter));
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
      throw RuntimeFailure(texts::runtime::kExpressionTooDeep, std::to_string(kMaxExpressionDepth));
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

// A value met inside an expression: a text in place (a variable's value or a
// piece of the expression, both unchanged while an expression is evaluated),
// a text of its own, or the result of arithmetic not yet written out. A whole
// number below 10^15 reads back from its general form unchanged, so such a
// result goes on to the next operator as the number itself: the language's
// round trip through the text is kept for every other value.
class Operand {
 public:
  static Operand inPlace(std::string_view v) {
    Operand o;
    o.view_ = v;
    return o;
  }
  // A text of the expression itself, whose Val was read when it was split.
  static Operand literal(std::string_view v, const ExpressionNode& n) {
    Operand o;
    o.view_ = v;
    if (n.hasNumber) {
      o.number_ = n.number;
      o.kind_ = Kind::InPlaceWithNumber;
    }
    return o;
  }
  static Operand owned(std::string t) {
    Operand o;
    o.text_ = std::move(t);
    o.kind_ = Kind::Owned;
    return o;
  }
  static Operand arithmeticResult(double v) {
    if (std::fabs(v) < 1e15 && v == static_cast<double>(static_cast<long long>(v))) {
      Operand o;
      o.number_ = v == 0 ? 0.0 : v;  // "-0" is written "0" and reads back as +0
      o.kind_ = Kind::Number;
      return o;
    }
    return owned(conv::CStr(v));
  }

  double number() const {
    switch (kind_) {
      case Kind::Number:
      case Kind::InPlaceWithNumber:
        return number_;
      default:
        return conv::Val(textView());
    }
  }
  std::string text() && {
    switch (kind_) {
      case Kind::Number:
        return conv::CStr(number_);
      case Kind::Owned:
        return std::move(text_);
      default:
        return std::string(view_);
    }
  }
  // Not for a number: call text() first.
  std::string_view textView() const { return kind_ == Kind::Owned ? text_ : view_; }
  bool isNumber() const { return kind_ == Kind::Number; }

 private:
  enum class Kind { InPlace, InPlaceWithNumber, Owned, Number };
  Kind kind_ = Kind::InPlace;
  std::string_view view_;
  std::string text_;
  double number_ = 0;
};

// Counts the |...| stretches being evaluated, for the observers.
struct InBars {
  int& depth;
  explicit InBars(int& d) : depth(d) { ++depth; }
  ~InBars() { --depth; }
};

// A word is a variable, or stands for itself. A word that looks like a name
// and has no value is warned of inside |...| (in a data row too), noted for
// the function whose argument it is, and told to the diagnostics.
Operand word(RunContext& ctx, std::string_view w, bool nameLike, const ExpressionNode* node) {
  if (const std::string* v = ctx.vars.find(w)) return Operand::inPlace(*v);
  if (nameLike) {
    CompileInternals& in = internals(ctx);
    in.unsetRead = true;
    const bool inBars = in.barDepth > 0;
    if (inBars) warnUnsetName(ctx, w);
    if (!ctx.observers.empty() && in.rowDepth == 0)
      ctx.observers.notify([&](CompileObserver& w2) { w2.unassignedName(std::string(w), inBars); });
  }
  return node ? Operand::literal(w, *node) : Operand::inPlace(w);
}

Operand value(RunContext& ctx, const ExpressionTree& t, std::uint32_t i);

// One side of an operator is one level deeper.
Operand side(RunContext& ctx, int& depth, const ExpressionTree& t, std::uint32_t i) {
  Level level(depth);
  return value(ctx, t, i);
}

Operand value(RunContext& ctx, const ExpressionTree& t, std::uint32_t i) {
  const ExpressionNode& n = t.nodes[i];
  switch (n.kind) {
    case ExpressionNode::Kind::Word:
      return word(ctx, t.textOf(n), n.nameLike, &n);
    case ExpressionNode::Kind::Quoted:
      return Operand::literal(t.textOf(n), n);
    case ExpressionNode::Kind::TooDeep:
      throw RuntimeFailure(texts::runtime::kExpressionTooDeep, std::to_string(kMaxExpressionDepth));
    case ExpressionNode::Kind::Operator:
      break;
  }
  int& depth = internals(ctx).expressionDepth;
  Operand l = side(ctx, depth, t, n.left);
  Operand r = side(ctx, depth, t, n.right);
  if (n.op == '&') {
    std::string joined = std::move(l).text();
    const std::string right = r.isNumber() ? std::move(r).text() : std::string();
    const std::string_view rv = r.isNumber() ? std::string_view(right) : r.textView();
    checkTextLength(joined.size() + rv.size());
    return Operand::owned(joined.append(rv));
  }
  return Operand::arithmeticResult(arithmetic(n.op, l.number(), r.number(), t.textOf(n)));
}

}  // namespace

std::string Evaluate(RunContext& ctx, std::string& expr) {
  CompileInternals& in = internals(ctx);
  Level level(in.expressionDepth);
  const std::string_view t = trimmed(expr);
  if (t.size() != expr.size()) expr = std::string(t);
  // A quoted text is taken literally, everything between the outer quotes.
  if (isQuoted(expr)) return unquoted(expr);
  if (expr.find('|') != std::string::npos) substituteLine(ctx, expr);

  // Function calls, innermost-last: each becomes a temporary holding its value.
  bool called = false;
  for (std::size_t close; (close = expr.rfind(')')) != std::string::npos;) {
    std::size_t open = matchingParen(expr, close);
    if (open == std::string::npos)
      throw RuntimeFailure(texts::runtime::kUnbalancedParentheses, expr);
    std::string v = FunctionDispatch(ctx, expr, open, close);
    std::string temp = newTemporaryName(ctx);
    applyAssignments(ctx, temp + "=\"" + v + "\",");
    expr.replace(open, close - open + 1, temp);
    called = true;
  }
  // A text with temporaries in it never comes again: it is not kept.
  const ExpressionTree& tree = called ? in.expressions.scratch(expr) : in.expressions.tree(expr);
  return value(ctx, tree, 0).text();
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
    return word(ctx, expr, looksLikeName(expr), nullptr).text();
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
    if (b == std::string::npos) throw RuntimeFailure(texts::runtime::kUnpairedBar);
    if (++rounds > kMaxSubstitutions) throw RuntimeFailure(texts::runtime::kUnpairedBar);
    std::string inner = line.substr(a + 1, b - a - 1);
    InBars bars(internals(ctx).barDepth);
    std::string value = Evaluate(ctx, inner);
    line.replace(a, b - a + 1, value);
    if (line.size() > kMaxTextLength)
      throw RuntimeFailure(texts::runtime::kLineTooLong, std::to_string(kMaxTextLength));
  }
}

void splitFields(RunContext& ctx, std::string_view line) {
  CompileInternals& in = internals(ctx);
  std::size_t pos = 0, n = 0;
  do {
    if (n == in.fields.size()) throw RuntimeFailure(texts::runtime::kTooManyFields);
    const std::string_view f = trimmed(nextFieldView(line, pos));
    std::string& field = in.fields[n++];
    if (n > in.fieldsUsed) in.fieldsUsed = n;  // fields from here on are empty
    if (f.size() >= 2 && f.front() == '|' && f.back() == '|') {
      InBars bars(in.barDepth);
      field = Evaluate(ctx, f.substr(1, f.size() - 2));
    } else
      field.assign(f);  // keeps the slot's storage
    if (field.size() == 2 && field[0] == 'i' && field[1] == 'f') break;
  } while (pos < line.size());
  for (; n < in.fields.size() && n < in.fieldsUsed; ++n) in.fields[n].clear();
  in.fieldsUsed = n;
}

void evaluateArguments(RunContext& ctx, std::string_view argumentText) {
  CompileInternals& in = internals(ctx);
  // Arguments are often plain words (model names, labels), even inside |...|.
  const int bars = in.barDepth;
  in.barDepth = 0;
  struct Restore {
    int& depth;
    int value;
    ~Restore() { depth = value; }
  } restore{in.barDepth, bars};
  for (std::string& a : in.args) a.clear();
  const bool outerUnset = in.unsetRead;
  std::uint32_t unset = 0;
  std::size_t pos = 0;
  int n = 0;
  while (pos < argumentText.size() || (n == 0 && pos == 0)) {
    if (n == static_cast<int>(in.args.size()))
      throw RuntimeFailure(texts::runtime::kTooManyArguments);
    std::string f = nextField(argumentText, pos);
    // A call inside the argument clears and refills the shared array: slots this
    // call filled before it are lost, as the language has always behaved.
    in.unsetRead = false;
    std::string value = Evaluate(ctx, f);
    if (in.unsetRead) unset |= std::uint32_t{1} << n;
    in.args[n++] = std::move(value);
    if (pos > argumentText.size()) break;
  }
  in.argCount = n;
  in.unsetArgs = unset;
  in.unsetRead = outerUnset;  // the names this call read are its own arguments' business
}

}  // namespace korvane
