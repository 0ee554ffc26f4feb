#include "compiler/extension/model_queries.h"

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/similar.h"
#include "base/texts/check_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {

hosts::MxEngine& queryEngine(CallContext& ctx, std::string_view function) {
  if (!ctx.engine()) throw RuntimeFailure(texts::runtime::kNotAvailable, std::string(function));
  return *ctx.engine();
}

std::int32_t loadPoint(CallContext& ctx, std::string_view model, std::string_view label,
                       std::int32_t n) {
  hosts::MxDataAccess& data = queryEngine(ctx, "getpoint").dataAccess();
  QueryState& q = ctx.query();
  if (n < 1) {
    q.status = data.stringInfo(model, label, q.pointCount);
    // Widened: a count near the 32-bit limit must not wrap into a valid point.
    const std::int64_t k = n == 0 ? q.pointCount : std::int64_t{q.pointCount} + n + 1;
    n = k < 0 ? std::int32_t{0} : static_cast<std::int32_t>(k);
  }
  q.status = data.point(model, label, n, q.record);
  warnNotStored(ctx, q.status, model, label);
  return q.status;
}

void warnNotStored(CallContext& ctx, std::int32_t status, std::string_view model,
                   std::string_view label) {
  hosts::MxEngine* engine = ctx.engine();
  if (!engine || !engine->configuration().holdsModels()) return;  // nothing is stored there
  if (status == hosts::MxStatus::kNoModel) {
    ctx.warn(texts::check::kNoModel, model, {}, model, [&] {
      // Not the model itself, where the query's own request has just made it.
      std::vector<std::string> names = engine->configuration().modelNames();
      std::erase_if(names, [&](const std::string& n) { return cp::equalsIgnoreCase(n, model); });
      return text::closestWord(model, names);
    });
  } else if (status == hosts::MxStatus::kNoString) {
    ctx.warn(texts::check::kNoString, model, label, label, [&] {
      auto m = engine->library().model(model);
      return m ? text::closestWord(label, m->stringLabels()) : std::string();
    });
  }
}

void checkGenioSource(CallContext& ctx, const std::string& model) {
  hosts::MxEngine* engine = ctx.engine();
  if (!engine || !engine->configuration().holdsModels() ||
      engine->configuration().modelExists(model))
    return;
  warnNotStored(ctx, hosts::MxStatus::kNoModel, model, {});
  ctx.modelMadeEmpty(model);
}

double chainageArgument(CallContext& ctx, const std::string& argument, std::string_view model,
                        std::string_view label) {
  const char first = argument.empty() ? '\0' : cp::toLower(argument[0]);
  if (first == 'e' || first == 'u') {
    loadPoint(ctx, model, label, first == 'e' ? 1 : -1);
    return ctx.query().record.num[4];
  }
  try {
    return conv::Val(argument);
  } catch (const conv::ConversionError&) {
    throw foreignFailure(argument);
  }
}

}  // namespace korvane
