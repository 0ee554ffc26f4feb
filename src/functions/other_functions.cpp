// date, time, sheets and input.
#include "base/conversions.h"
#include "base/fs.h"
#include "functions/functions.h"

namespace korvane {

std::string fnDate(CallContext&) { return conv::ShortDate(conv::NowSerial()); }
std::string fnTime(CallContext&) { return conv::LongTime(conv::NowSerial()); }

// The number of sheets of a long-section parameter set: byte 121 of its
// drawing parameter file. A file that cannot be read gives "0".
std::string fnSheets(CallContext& ctx) {
  std::string set = arg(ctx, 1);
  if (set.empty()) return "0";
  ctx.flushAndRun();
  std::string path = fs::join(ctx.mxProjectFolder(), set + ".dpf");
  auto data = fs::readFile(path);
  if (!data || data->size() < 121) return "0";
  return std::to_string(static_cast<unsigned char>((*data)[120]));
}

std::string fnInput(CallContext& ctx) {
  std::string question = arg(ctx, 1);
  ctx.flushAndRun();
  std::string prompt = ctx.text("Messages", "s10") + "\r\n\r\n" + question;
  std::string answer;
  if (!ctx.prompt() || !ctx.prompt()->ask("Korvane", prompt, answer)) return {};
  return answer;
}

}  // namespace korvane
