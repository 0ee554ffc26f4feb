// Functions that read MX models: getdata, getchain, getpoint, getdist, getlength
// and each. Each first flushes and runs what was compiled so far, so that it
// sees the model as the lines above it left it. Arguments are copied before
// anything runs: the argument array is shared with every nested call.
#include <cmath>
#include <cstdio>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"
#include "base/texts/outputs_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/model_queries.h"
#include "functions/argument_conversion.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

// Strings longer than this are not measured by getlength: its point index is
// a 16-bit integer.
constexpr std::size_t kMaxLengthPoints = 32767;

bool startsLower(const std::string& s, std::string_view prefix) {
  return cp::lower(text::left(s, prefix.size())) == prefix;
}

// Field k (1 to 16) of the point record as text: a text field, or a number in
// its general form.
std::string recordField(CallContext& ctx, const char* function, const std::string& field,
                        bool text) {
  const std::int16_t k = integerOf(field);
  if (k < 1 || k > 16)
    throw RuntimeFailure(texts::runtime::kFieldNumber, function, std::to_string(k));
  const hosts::PointRecord& r = ctx.query().record;
  const auto i = static_cast<std::size_t>(k - 1);
  return text ? r.txt[i] : conv::CStr(r.num[i]);
}

std::unique_ptr<hosts::MxModel> libraryModel(CallContext& ctx, const char* function,
                                             const std::string& model) {
  auto m = queryEngine(ctx, function).library().model(model);
  if (!m) throw RuntimeFailure(texts::runtime::kNoModel, model);
  return m;
}

// x, y, z of point p (1-based, negative from the end) of a string through the
// model library, or the getdist error code for the first (base -10) or second
// (base -20) point.
struct PointOrCode {
  double x = 0, y = 0, z = 0;
  int code = 0;
};

PointOrCode libraryPoint(CallContext& ctx, const std::string& model, const std::string& label,
                         std::int32_t p, int base) {
  auto m = queryEngine(ctx, "getdist").library().model(model);
  if (!m) {
    warnNotStored(ctx, hosts::MxStatus::kNoModel, model, label);
    return {0, 0, 0, base - 1};
  }
  auto s = m->string(label);
  if (!s) {
    warnNotStored(ctx, hosts::MxStatus::kNoString, model, label);
    return {0, 0, 0, base - 2};
  }
  const std::vector<double> data = s->GetPointData();
  const auto count = static_cast<std::int64_t>(std::llround(data.size() / 3.0));
  const std::int64_t n = p;
  if (std::llabs(n) < 1 || std::llabs(n) > count) return {0, 0, 0, base - 3};
  const std::int64_t k = n < 0 ? n + count + 1 : n;
  const auto at = static_cast<std::size_t>(3 * k - 3);
  return {data[at], data[at + 1], data[at + 2], 0};
}

std::string fnGetdata(CallContext& ctx) {
  const std::int16_t n = integerArg(ctx, 1);
  const bool text = startsLower(ctx.arg(2), "txt");
  const std::string field = ctx.arg(3);
  ctx.flushAndRun();
  QueryState& q = ctx.query();
  q.status = queryEngine(ctx, "getdata").dataAccess().record(n, q.record);
  return recordField(ctx, "getdata", field, text);
}

std::string fnGetchain(CallContext& ctx) {
  const std::string model = ctx.arg(1), label = ctx.arg(2);
  const std::int32_t n = longArg(ctx, 3);
  ctx.flushAndRun();
  loadPoint(ctx, model, label, n);
  return conv::CStr(ctx.query().record.num[4]);
}

std::string fnGetpoint(CallContext& ctx) {
  const std::string model = ctx.arg(1), label = ctx.arg(2), kind = ctx.arg(4), field = ctx.arg(5);
  const std::int32_t n = ctx.arg(3).empty() ? 0 : longArg(ctx, 3);
  ctx.flushAndRun();
  if (loadPoint(ctx, model, label, n) != 0) {
    ctx.writeLine("   " + ctx.text(texts::outputs::kPointQueryFailed) + "(" + text::rtrim(model) +
                  "," + label + ")");
    return "0";
  }
  std::string result;
  if (startsLower(kind, "txt") || startsLower(kind, "num"))
    result = recordField(ctx, "getpoint", field, startsLower(kind, "txt"));
  if (n == 0) result = std::to_string(ctx.query().pointCount);
  return result;
}

std::string fnGetdist(CallContext& ctx) {
  const std::string m1 = ctx.arg(1), s1 = ctx.arg(2), m2 = ctx.arg(4), s2 = ctx.arg(5);
  const bool slope = text::left(ctx.arg(7), 4) == "slop";
  const std::int32_t p1 = longArg(ctx, 3), p2 = longArg(ctx, 6);
  ctx.flushAndRun();
  const PointOrCode a = libraryPoint(ctx, m1, s1, p1, -10);
  if (a.code) return std::to_string(a.code);
  const PointOrCode b = libraryPoint(ctx, m2, s2, p2, -20);
  if (b.code) return std::to_string(b.code);
  const double dx = b.x - a.x, dy = b.y - a.y, dz = slope ? b.z - a.z : 0.0;
  return numberResult(std::pow(dx * dx + dy * dy + dz * dz, 0.5), "getdist");
}

std::string fnGetlength(CallContext& ctx) {
  const std::string model = ctx.arg(1), label = ctx.arg(2);
  const bool plan = cp::lower(ctx.arg(3)) == "plan";
  ctx.flushAndRun();
  auto s = libraryModel(ctx, "getlength", model)->string(label);
  if (!s) throw RuntimeFailure(texts::runtime::kNoString, model, label);
  const std::vector<hosts::MxPoint> points = s->points();
  ctx.query().pointCount = static_cast<std::int32_t>(points.size());
  if (points.size() > kMaxLengthPoints)
    throw RuntimeFailure(texts::runtime::kStringTooLong, "getlength", label);
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const hosts::MxPoint &a = points[i - 1], &b = points[i];
    if (a.Discontinuity == 1) continue;  // the gap after a break is not part of the string
    const double dx = b.X - a.X, dy = b.Y - a.Y, dz = plan ? 0.0 : b.z - a.z;
    length += std::sqrt(dx * dx + dy * dy + dz * dz);
  }
  return numberResult(length, "getlength");
}

std::string fnEach(CallContext& ctx) {
  const std::string model = ctx.arg(1);
  std::string pattern = text::left(ctx.arg(2), 4);
  pattern.resize(4, ' ');
  for (char& c : pattern)
    if (c == ' ') c = '?';
  pattern = cp::upper(pattern);
  ctx.flushAndRun();
  std::vector<std::string>& list = ctx.selection();
  list.clear();
  for (const std::string& label : libraryModel(ctx, "each", model)->stringLabels()) {
    // Labels are four-character names: a shorter one ends in blanks.
    std::string name = label;
    if (name.size() < 4) name.resize(4, ' ');
    bool match = false;
    try {
      match = conv::Like(name, pattern);
    } catch (const conv::ConversionError&) {
      throw foreignFailure(pattern);
    }
    if (match) list.push_back(label);
  }
  char result[16];
  std::snprintf(result, sizeof result, "each%07zu", list.size());
  return result;
}

constexpr FunctionRow kModelQueryFunctionsRows[] = {
    {"getdata", fnGetdata}, {"getchain", fnGetchain},   {"getpoint", fnGetpoint},
    {"getdist", fnGetdist}, {"getdistance", fnGetdist}, {"getlength", fnGetlength},
    {"each", fnEach},
};

}  // namespace

extern const FunctionRows kModelQueryFunctions = kModelQueryFunctionsRows;

}  // namespace korvane
