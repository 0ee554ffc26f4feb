// Text to number and back (Val, the strict conversions, the general form),
// Format and Like. The input is a value and a pattern separated by the first
// NUL byte. A number's general form must read back as the same form.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/conversions.h"

using namespace korvane::conv;

namespace {

template <typename F>
void allowingConversionErrors(F f) {
  try {
    f();
  } catch (const ConversionError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::size_t cut = text.find('\0');
  std::string_view value = text.substr(0, cut);
  std::string_view pattern = cut == std::string_view::npos ? "" : text.substr(cut + 1);

  allowingConversionErrors([&] {
    std::string general = CStr(Val(value));
    if (CStr(CDbl(general)) != general) __builtin_trap();
  });
  bool numeric = IsNumeric(value);
  bool converted = false;
  allowingConversionErrors([&] {
    CDbl(value);
    converted = true;
  });
  if (numeric != converted) __builtin_trap();  // IsNumeric says what CDbl accepts
  allowingConversionErrors([&] { CInt(value); });
  allowingConversionErrors([&] { CLng(value); });
  double serial = 0;
  ParseDate(value, serial);
  allowingConversionErrors([&] { Format(value, pattern); });
  allowingConversionErrors([&] { Like(value, pattern); });
  return 0;
}
