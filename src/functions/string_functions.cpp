// Text functions. They run under an error trap: a count or position that is not
// a number, a negative count or a start below 1 leaves the result empty and
// writes the failure, with the number of arguments the function takes, to the
// run's log.
#include <string>

#include "base/conversions.h"
#include "compiler/compile_failure.h"
#include "compiler/expression.h"
#include "functions/argument_conversion.h"
#include "functions/functions.h"

namespace korvane {
namespace {

struct Trapped {};

template <typename F>
std::string trapped(CallContext& ctx, const char* name, int expected, F body) {
  try {
    return body();
  } catch (const RuntimeFailure&) {
    // only run-time failures are trapped; a message that ends the run goes on
  } catch (const conv::ConversionError&) {
  } catch (const Trapped&) {
  }
  ctx.writeLog(ctx.format("Runtime", "strfunc", name, std::to_string(expected)));
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

}  // namespace

std::string fnLen(CallContext& ctx) {
  return trapped(ctx, "len", 1, [&] { return std::to_string(arg(ctx, 1).size()); });
}

std::string fnReplace(CallContext& ctx) {
  // A result past the longest text ends the run rather than being trapped.
  checkTextLength(replacedLength(arg(ctx, 1), arg(ctx, 2), arg(ctx, 3)));
  return trapped(ctx, "replace", 3, [&] {
    std::string s = arg(ctx, 1);
    const std::string &what = arg(ctx, 2), &by = arg(ctx, 3);
    if (what.empty()) return s;
    std::string out;
    std::size_t from = 0;
    for (std::size_t at; (at = s.find(what, from)) != std::string::npos; from = at + what.size())
      out.append(s, from, at - from).append(by);
    return out.append(s, from);
  });
}

std::string fnFind(CallContext& ctx) {
  bool fromEnd = !arg(ctx, 3).empty();
  return trapped(ctx, "find", fromEnd ? 3 : 2, [&]() -> std::string {
    const std::string &s = arg(ctx, 1), &what = arg(ctx, 2);
    if (!fromEnd) {
      std::size_t at = s.find(what);
      return at == std::string::npos ? "0" : std::to_string(position1(at));
    }
    // Only -1 (search from the end) is honoured; any other third argument
    // gives empty text.
    if (integerArg(ctx, 3) != -1) return {};
    if (what.empty()) return std::to_string(s.size());
    std::size_t at = s.rfind(what);
    return at == std::string::npos ? "0" : std::to_string(position1(at));
  });
}

std::string fnLeft(CallContext& ctx) {
  return trapped(ctx, "left", 2, [&] {
    int n = integerArg(ctx, 2);
    if (n < 0) throw Trapped{};
    return arg(ctx, 1).substr(0, static_cast<std::size_t>(n));
  });
}

std::string fnRight(CallContext& ctx) {
  return trapped(ctx, "right", 2, [&] {
    int n = integerArg(ctx, 2);
    if (n < 0) throw Trapped{};
    const std::string& s = arg(ctx, 1);
    std::size_t k = std::min<std::size_t>(static_cast<std::size_t>(n), s.size());
    return s.substr(s.size() - k);
  });
}

// `mid` and `char`: with a length, that many characters from the start; without
// one, the single character at the start.
std::string fnMid(CallContext& ctx) {
  bool withLength = !arg(ctx, 3).empty();
  return trapped(ctx, "mid", withLength ? 3 : 2, [&] {
    std::int32_t start = longArg(ctx, 2);
    std::int32_t length = withLength ? longArg(ctx, 3) : 1;
    if (start < 1 || length < 0) throw Trapped{};
    const std::string& s = arg(ctx, 1);
    if (static_cast<std::size_t>(start) > s.size()) return std::string();
    return s.substr(static_cast<std::size_t>(start) - 1, static_cast<std::size_t>(length));
  });
}

std::string fnFormat(CallContext& ctx) { return conv::Format(arg(ctx, 1), arg(ctx, 2)); }

}  // namespace korvane
