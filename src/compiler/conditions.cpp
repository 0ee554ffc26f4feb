// The conditional line: "if," condition " then " assignments [" else " assignments].
#include <array>

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

// Comparison operators, two-character ones first so that they win over their parts.
const std::array<std::string_view, 8> kComparisons = {"<>", "<=", "=<", ">=", "=>", "<", ">", "="};

// A copy of the condition with every quoted stretch, quotes included, hidden
// behind "_" so that operators inside texts are not seen.
std::string maskQuotes(const std::string& s) {
  std::string m = s;
  bool inQuote = false;
  for (char& c : m) {
    if (c == '"') {
      inQuote = !inQuote;
      c = '_';
    } else if (inQuote) {
      c = '_';
    }
  }
  return m;
}

bool compare(std::string_view op, const std::string& l, const std::string& r) {
  if (op == "=") return l == r;
  if (op == "<>") return l != r;
  double a = conv::Val(l), b = conv::Val(r);
  if (op == ">") return a > b;
  if (op == "<") return a < b;
  if (op == ">=" || op == "=>") return a >= b;
  return a <= b;  // "<=", "=<"
}

// "exist(model)" or "exist(model,string)"; any other count keeps the truth of
// the call's previous condition.
bool existCondition(CompileCall& call, const std::string& condition, bool& applies) {
  std::string c = text::trim(condition);
  applies = text::startsWith(c, "exist(") && text::endsWith(c, ")");
  if (!applies) return false;
  RunContext& ctx = call.ctx;
  evaluateArguments(ctx, std::string_view(c).substr(6, c.size() - 7));
  if (!ctx.engine) return false;
  const CompileInternals& in = internals(ctx);
  if (in.argCount == 1) return ctx.engine->configuration().modelExists(in.args[0]);
  if (in.argCount == 2) return ctx.engine->configuration().stringExists(in.args[0], in.args[1]);
  return call.lastCondition;
}

}  // namespace

void conditionDirective(CompileCall& call, const std::string& line) {
  RunContext& ctx = call.ctx;
  const std::string s = line.size() > 3 ? line.substr(3) : std::string();
  const std::string lowered = cp::lower(s);
  const std::size_t thenAt = lowered.find(" then ");
  if (thenAt == std::string::npos) {
    // "if a>3 then" with its assignments forgotten: say so, not that then is missing.
    const std::string trimmed = text::rtrim(lowered);
    const bool endsInThen =
        trimmed.size() >= 5 && trimmed.compare(trimmed.size() - 5, 5, " then") == 0;
    throw RuntimeFailure(endsInThen ? texts::runtime::kNothingAfterThen : texts::runtime::kNoThen,
                         s);
  }
  const std::size_t elseAt = lowered.find(" else ");
  std::string condition = s.substr(0, thenAt);
  std::string thenPart, elsePart;
  if (elseAt == std::string::npos || elseAt < thenAt + 6) {
    thenPart = s.substr(thenAt + 6);
    if (elseAt != std::string::npos) elsePart = s.substr(elseAt + 6);
  } else {
    thenPart = s.substr(thenAt + 6, elseAt - thenAt - 6);
    elsePart = s.substr(elseAt + 6);
  }
  std::erase(condition, '|');

  const std::string masked = maskQuotes(condition);
  bool truth = false;
  bool applies = true;
  std::size_t at = std::string::npos;
  std::string_view op;
  for (auto candidate : kComparisons) {
    at = masked.find(candidate);
    if (at != std::string::npos) {
      op = candidate;
      break;
    }
  }
  if (at != std::string::npos) {
    std::string l = Evaluate(ctx, condition.substr(0, at));
    std::string r = Evaluate(ctx, condition.substr(at + op.size()));
    truth = compare(op, l, r);
  } else {
    truth = existCondition(call, condition, applies);
  }
  if (!applies) return;
  call.lastCondition = truth;
  applyAssignments(ctx, (truth ? thenPart : elsePart) + ",");
}

}  // namespace korvane
