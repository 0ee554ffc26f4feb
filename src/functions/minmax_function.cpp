// getminmax: the positions of the lowest and the highest level of a string.
// MX writes the string's points as GENIO text into a temporary file of the
// project folder, which is read back by fixed columns and deleted.
#include <cstdio>

#include "base/conversions.h"
#include "base/fs.h"
#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/call_context.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/model_queries.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

constexpr const char* kMinMaxFile = "tmpminmax.txt";
// x and y of a point both 0 under F12.3: the end of the string's points.
constexpr std::string_view kEndOfPoints = "       0.000       0.000";

// The level of a point record: columns 25 to 36 (z under F12.3), kept in
// single precision.
float levelOf(const std::string& line) {
  const std::string field = line.size() > 24 ? line.substr(24, 12) : std::string();
  try {
    return static_cast<float>(conv::Val(field));
  } catch (const conv::ConversionError&) {
    throw foreignFailure(field);
  }
}

std::vector<std::string> linesOf(const std::string& data) {
  std::vector<std::string> lines;
  std::size_t pos = 0;
  while (pos < data.size()) {
    std::size_t end = data.find('\n', pos);
    if (end == std::string::npos) end = data.size();
    std::string line = data.substr(pos, end - pos);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    pos = end + 1;
  }
  return lines;
}

// The request wrote no string: the model was not there (and the request made
// it, empty, unless the lines before it did), or it has no such string.
void notStored(CallContext& ctx, bool stored, const std::string& model, const std::string& label) {
  auto m = stored ? nullptr : ctx.engine()->library().model(model);
  if (m && m->stringLabels().empty()) {
    ctx.modelMadeEmpty(model);
    warnNotStored(ctx, hosts::MxStatus::kNoModel, model, label);
  } else {
    warnNotStored(ctx, hosts::MxStatus::kNoString, model, label);
  }
}

std::string fnGetminmax(CallContext& ctx) {
  const std::string model = ctx.arg(1), label = ctx.arg(2);
  const std::string file = fs::join(ctx.mxProjectFolder(), kMinMaxFile);
  // Asked before the GENIO request, which makes a model that is not there.
  hosts::MxEngine* engine = ctx.engine();
  const bool stored = !engine || !engine->configuration().holdsModels() ||
                      engine->configuration().modelExists(model);
  ctx.writeLine("over," + file + ",genio");
  ctx.writeLine("geni," + model);
  ctx.writeLine("001format(8f12.3,4a4)");
  ctx.writeLine("081," + label);
  ctx.writeLine("999");
  ctx.writeLine("over,,genio");
  ctx.flushAndRun();

  const std::optional<std::string> data = fs::readFile(file);
  if (!data) throw RuntimeFailure(texts::runtime::kCannotRead, file);
  fs::removeFile(file);
  const std::vector<std::string> lines = linesOf(*data);

  long minAt = 1, maxAt = 1;
  std::size_t i = 0;
  while (i < lines.size() && !text::startsWith(lines[i], "080,")) ++i;
  if (i == lines.size()) notStored(ctx, stored, model, label);
  if (i + 1 < lines.size()) {
    // The first point's level starts both, unfiltered: a null level there
    // stays the minimum.
    float min = levelOf(lines[i + 1]), max = min;
    long at = 1;
    for (i += 2; i < lines.size() && text::left(lines[i], 24) != kEndOfPoints; ++i) {
      ++at;
      const float z = levelOf(lines[i]);
      if (z > -998 && z < min) {
        min = z;
        minAt = at;
      }
      if (z > max) {
        max = z;
        maxAt = at;
      }
    }
  }
  char result[64];
  std::snprintf(result, sizeof result, "Pmin:%6ld,Pmax:%6ld", minAt, maxAt);
  return result;
}

constexpr FunctionRow kMinmaxFunctionRows[] = {{"getminmax", fnGetminmax}};

}  // namespace

extern const FunctionRows kMinmaxFunction = kMinmaxFunctionRows;

}  // namespace korvane
