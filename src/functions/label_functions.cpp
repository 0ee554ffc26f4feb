// getnextlabel and getfreelabel: string labels for new strings of a model,
// from the data-access object's label queries.
#include "base/codepage.h"
#include "compiler/extension/model_queries.h"
#include "functions/function_rows.h"
#include "functions/label_arithmetic.h"

namespace korvane {
namespace {

constexpr std::size_t kLabelLength = 4;

// Flushes, then whether the model exists and the prefix has 1 to 3 characters.
bool labelQueryPossible(CallContext& ctx, const char* function, const std::string& model,
                        const std::string& prefix) {
  ctx.flushAndRun();
  if (prefix.empty() || prefix.size() >= kLabelLength) return false;
  if (queryEngine(ctx, function).configuration().modelExists(model)) return true;
  warnNotStored(ctx, hosts::MxStatus::kNoModel, model, {});
  return false;
}

// The first free four-character label beginning with `prefix`, depth first in
// digit order; empty when every label with the prefix is taken. The recursion
// is at most four deep and each level tries at most 36 candidates.
std::string freeLabel(CallContext& ctx, const std::string& model, const std::string& prefix) {
  QueryState& q = ctx.query();
  std::int32_t used = 0;
  q.status = ctx.engine()->dataAccess().labelCount(model, prefix, used);
  std::int64_t room = 1;
  for (std::size_t k = prefix.size(); k < kLabelLength; ++k) room *= 36;
  if (room <= used) return {};
  if (prefix.size() >= kLabelLength) return prefix;
  std::string candidate = prefix + "0";
  for (int tried = 0; tried < 36; ++tried, candidate = labels::next(candidate)) {
    std::string found = freeLabel(ctx, model, candidate);
    if (!found.empty()) return found;
  }
  return {};
}

std::string fnGetnextlabel(CallContext& ctx) {
  const std::string model = ctx.arg(1), prefix = ctx.arg(2);
  if (!labelQueryPossible(ctx, "getnextlabel", model, prefix)) return {};
  std::string label;
  ctx.query().status = ctx.engine()->dataAccess().nextLabel(model, prefix, label);
  return label;
}

std::string fnGetfreelabel(CallContext& ctx) {
  const std::string model = ctx.arg(1), prefix = cp::lower(ctx.arg(2));
  if (!labelQueryPossible(ctx, "getfreelabel", model, prefix)) return {};
  return freeLabel(ctx, model, prefix);
}

constexpr FunctionRow kLabelFunctionsRows[] = {
    {"getnextlabel", fnGetnextlabel},
    {"getfreelabel", fnGetfreelabel},
};

}  // namespace

extern const FunctionRows kLabelFunctions = kLabelFunctionsRows;

}  // namespace korvane
