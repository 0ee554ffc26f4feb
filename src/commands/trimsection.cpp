// trimsection: cuts back the strings selected by `inic` where they run past
// boundary strings. The engine reports each selected string with, at every
// point, the position along it and the label of the string it crosses there;
// the trimming step turns each string's crossings into EDIT records.
#include "base/conversions.h"
#include "base/fs.h"
#include "base/text.h"
#include "base/texts/outputs_texts.h"
#include "base/texts/runtime_texts.h"
#include "commands/command_rows.h"
#include "commands/query_file.h"
#include "commands/section_trimming.h"
#include "compiler/extension/compile_failure.h"
#include "compiler/extension/directive_call.h"
#include "compiler/extension/model_queries.h"

namespace korvane::commands {
namespace {

constexpr const char* kTrimFile = "tmptrimsect.txt";
// x and y both 0 under F12.3: the end of a string's points.
constexpr std::string_view kEndOfPoints = "       0.000       0.000";

// Columns `from` to `from + count - 1` (1-based), fewer where the line ends.
std::string columns(const std::string& line, std::size_t from, std::size_t count) {
  return from - 1 < line.size() ? line.substr(from - 1, count) : std::string();
}

// A data record under (4F12.3,A4) has its decimal points in columns 9 and 21.
bool isDataRecord(const std::string& line) {
  return line.size() >= 21 && line[8] == '.' && line[20] == '.';
}

double distance(CallContext& ctx) {
  const std::string value = ctx.evaluate("dist");
  if (value == "dist") return 0;  // no such variable
  return conv::Val(value);
}

BoundaryMasks boundaryMasks(CallContext& ctx) {
  BoundaryMasks b;
  for (int i = 0; i < 8; ++i)
    b.masks[i] = BoundaryMasks::normalise(ctx.evaluate("mask" + std::to_string(i + 1)));
  return b;
}

// trimsection,MODEL
DirectiveResult trimsection(DirectiveCall& d) {
  CallContext& ctx = d.context();
  const std::string& model = d.argument(1);
  const std::string selection = ctx.evaluate("inic");
  const BoundaryMasks masks = boundaryMasks(ctx);
  const double dist = distance(ctx);

  checkGenioSource(ctx, model);
  QueryFile file(fs::join(ctx.projectFolder(), kTrimFile));
  ctx.writeLine(std::string("over,") + kTrimFile + ",genio");
  ctx.writeLine("geni," + model);
  ctx.writeLine("001,FORMAT (4F12.3,A4)");
  ctx.writeLine("003,ordr,4=1,1,2,3,4,5");
  ctx.writeLine("019," + selection + ",4=1");
  const std::vector<std::string> lines = file.run(ctx);
  ctx.writeLine("   " + ctx.text(texts::outputs::kTrimStart));
  ctx.writeLine("edit," + model);
  std::string label;
  std::vector<Crossing> crossings;
  for (const std::string& line : lines) {
    if (text::startsWith(line, "080,")) {
      label = columns(line, 5, 4);
      label.resize(4, ' ');
      crossings.clear();
    } else if (isDataRecord(line)) {
      if (text::left(line, 24) == kEndOfPoints) {
        for (const std::string& r : trimRecords(label, crossings, masks, dist)) ctx.writeLine(r);
      } else {
        if (crossings.size() == kMaxCrossings)
          throw RuntimeFailure(texts::runtime::kTooManyCrossings, text::trim(label),
                               std::to_string(kMaxCrossings));
        std::string crossed = columns(line, 49, 4);
        crossed.resize(4, ' ');
        crossings.push_back({crossed, static_cast<float>(conv::Val(columns(line, 37, 12)))});
      }
    }
  }
  file.remove();
  ctx.writeLine("999");
  ctx.writeLine("   " + ctx.text(texts::outputs::kTrimEnd));
  return DirectiveResult::Continue;
}

// The eight boundary masks match every label unless the keyword text says otherwise.
constexpr DirectiveRow kTrimsectionCommandRows[] = {
    {"trimsection",
     {.flushFirst = true,
      .readKeywordText = true,
      .defaults = DefaultBlock::Plain,
      .assignments = {"mask1=\"????\",mask2=\"????\",mask3=\"????\",mask4=\"????\",",
                      "mask5=\"????\",mask6=\"????\",mask7=\"????\",mask8=\"????\","},
      .assignKeywordText = true},
     trimsection},
};

}  // namespace

extern const DirectiveRows kTrimsectionCommand = kTrimsectionCommandRows;

}  // namespace korvane::commands
