// Text functions. They run under the error trap: a count or position that is
// not a number, a negative count or a start below 1 leaves the result empty
// and writes the failure, with the number of arguments the function takes, to
// the run's log.
#include <optional>
#include <string>

#include "base/conversions.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/call_context.h"
#include "compiler/extension/text_length.h"
#include "compiler/extension/trap.h"
#include "functions/argument_conversion.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

using Result = std::optional<std::string>;  // nothing: the arguments are wrong

// `body`'s value under the trap, which takes a body without a value as it
// takes a failure.
template <typename F>
std::string underTrap(CallContext& ctx, const char* name, int expected, F body) {
  if (Result value = trapped(body)) return std::move(*value);
  ctx.writeLog(
      ctx.format(texts::runtime::kStringFunctionArguments, name, std::to_string(expected)));
  return {};
}

std::size_t position1(std::size_t zeroBased) { return zeroBased + 1; }

// The length of s with every `what` replaced by `by`, known before the text is built.
std::size_t replacedLength(const std::string& s, const std::string& what, const std::string& by) {
  std::size_t n = s.size();
  if (what.empty()) return n;
  for (std::size_t at = s.find(what); at != std::string::npos; at = s.find(what, at + what.size()))
    n = n - what.size() + by.size();
  return n;
}

std::string fnLen(CallContext& ctx) {
  return underTrap(ctx, "len", 1, [&]() -> Result { return std::to_string(ctx.arg(1).size()); });
}

std::string fnReplace(CallContext& ctx) {
  // A result past the longest text ends the run rather than being trapped.
  checkTextLength(replacedLength(ctx.arg(1), ctx.arg(2), ctx.arg(3)));
  return underTrap(ctx, "replace", 3, [&]() -> Result {
    std::string s = ctx.arg(1);
    const std::string &what = ctx.arg(2), &by = ctx.arg(3);
    if (what.empty()) return s;
    std::string out;
    std::size_t from = 0;
    for (std::size_t at; (at = s.find(what, from)) != std::string::npos; from = at + what.size())
      out.append(s, from, at - from).append(by);
    return out.append(s, from);
  });
}

std::string fnFind(CallContext& ctx) {
  bool fromEnd = !ctx.arg(3).empty();
  return underTrap(ctx, "find", fromEnd ? 3 : 2, [&]() -> Result {
    const std::string &s = ctx.arg(1), &what = ctx.arg(2);
    if (!fromEnd) {
      std::size_t at = s.find(what);
      return at == std::string::npos ? "0" : std::to_string(position1(at));
    }
    // Only -1 (search from the end) is honoured; any other third argument
    // gives empty text.
    if (integerArg(ctx, 3) != -1) return "";
    if (what.empty()) return std::to_string(s.size());
    std::size_t at = s.rfind(what);
    return at == std::string::npos ? "0" : std::to_string(position1(at));
  });
}

std::string fnLeft(CallContext& ctx) {
  return underTrap(ctx, "left", 2, [&]() -> Result {
    int n = integerArg(ctx, 2);
    if (n < 0) return std::nullopt;
    return ctx.arg(1).substr(0, static_cast<std::size_t>(n));
  });
}

std::string fnRight(CallContext& ctx) {
  return underTrap(ctx, "right", 2, [&]() -> Result {
    int n = integerArg(ctx, 2);
    if (n < 0) return std::nullopt;
    const std::string& s = ctx.arg(1);
    std::size_t k = std::min<std::size_t>(static_cast<std::size_t>(n), s.size());
    return s.substr(s.size() - k);
  });
}

// `mid` and `char`: with a length, that many characters from the start; without
// one, the single character at the start.
std::string fnMid(CallContext& ctx) {
  bool withLength = !ctx.arg(3).empty();
  return underTrap(ctx, "mid", withLength ? 3 : 2, [&]() -> Result {
    std::int32_t start = longArg(ctx, 2);
    std::int32_t length = withLength ? longArg(ctx, 3) : 1;
    if (start < 1 || length < 0) return std::nullopt;
    const std::string& s = ctx.arg(1);
    if (static_cast<std::size_t>(start) > s.size()) return "";
    return s.substr(static_cast<std::size_t>(start) - 1, static_cast<std::size_t>(length));
  });
}

std::string fnFormat(CallContext& ctx) {
  ctx.numberExpected(1);  // the value formatted, most often a number
  return conv::Format(ctx.arg(1), ctx.arg(2));
}

constexpr FunctionRow kStringFunctionsRows[] = {
    {"len", fnLen},     {"replace", fnReplace}, {"find", fnFind}, {"left", fnLeft},
    {"right", fnRight}, {"mid", fnMid},         {"char", fnMid},  {"format", fnFormat},
};

}  // namespace

extern const FunctionRows kStringFunctions = kStringFunctionsRows;

}  // namespace korvane
