// Reading MX models while a compile runs: the helpers that the model-query
// functions and the extended commands share. Each leaves its answer in the
// run's query state (CallContext::query()).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "compiler/extension/call_context.h"
#include "hosts/mx.h"

namespace korvane {

// The answer of the model queries, shared by the functions and commands that
// read MX data: the status word of the last data-access call, the point
// record it filled and the point count of the last string-information query.
struct QueryState {
  std::int32_t status = 0;
  hosts::PointRecord record;
  std::int32_t pointCount = 0;
};

// The engine that answers model queries; a run-time failure naming `function`
// when the run has none.
hosts::MxEngine& queryEngine(CallContext& ctx, std::string_view function);

// Point n of a string through the data-access object, into the query state's
// point record. n = 0 is the last point and a negative n counts from the end
// (-1 the last, -2 the one before it); for those the string-information query
// runs first and sets the point count. Returns the status of the point query,
// which the query state keeps too.
std::int32_t loadPoint(CallContext& ctx, std::string_view model, std::string_view label,
                       std::int32_t n);

// Warns when `status` (of a query of `label` in `model`) says that the model
// or the string is not in the store, with the closest name the store holds.
void warnNotStored(CallContext& ctx, std::int32_t status, std::string_view model,
                   std::string_view label);

// Before a GENIO request that reads `model`, with what was compiled before it
// run: when the model is not there (the request makes it, empty), warns and
// names it for the run's summary.
void checkGenioSource(CallContext& ctx, const std::string& model);

// A chainage argument of the extended commands: "e..." is the chainage of
// the string's first point, "u..." that of its last (any case); any other
// text its leading number ("12.5abc" is 12.5, no number is 0).
double chainageArgument(CallContext& ctx, const std::string& argument, std::string_view model,
                        std::string_view label);

}  // namespace korvane
