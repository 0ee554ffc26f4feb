// date, time, sheets and input.
#include "base/conversions.h"
#include "base/fs.h"
#include "base/texts/messages_texts.h"
#include "compiler/extension/call_context.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

std::string fnDate(CallContext&) { return conv::ShortDate(conv::NowSerial()); }
std::string fnTime(CallContext&) { return conv::LongTime(conv::NowSerial()); }

// The number of sheets of a long-section parameter set: byte 121 of its
// drawing parameter file. A file that cannot be read gives "0".
std::string fnSheets(CallContext& ctx) {
  std::string set = ctx.arg(1);
  if (set.empty()) return "0";
  ctx.flushAndRun();
  std::string path = fs::join(ctx.mxProjectFolder(), set + ".dpf");
  auto data = fs::readFile(path);
  if (!data || data->size() < 121) return "0";
  return std::to_string(static_cast<unsigned char>((*data)[120]));
}

std::string fnInput(CallContext& ctx) {
  std::string question = ctx.arg(1);
  ctx.flushAndRun();
  std::string prompt = ctx.text(texts::messages::kInputPrompt) + "\r\n\r\n" + question;
  std::string answer;
  if (!ctx.ask("Korvane", prompt, answer)) return {};
  return answer;
}

constexpr FunctionRow kOtherFunctionsRows[] = {
    {"date", fnDate}, {"time", fnTime}, {"sheets", fnSheets}, {"input", fnInput}};

}  // namespace

extern const FunctionRows kOtherFunctions = kOtherFunctionsRows;

}  // namespace korvane
