// The embedded engine's stated limits, and how its messages quote input: a
// line, a name or a field is quoted up to kExcerptLength characters, so that
// a bad record of any size gives a message of a few lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane::engine {

// The longest line of input, in bytes: the compiler's line limit too.
constexpr std::size_t kMaxLineLength = 65535;
// The largest input file (an import included), in bytes.
constexpr std::uintmax_t kMaxInputBytes = std::uintmax_t{1} << 30;
// The longest model name, in bytes (Windows-1250 characters).
constexpr std::size_t kMaxModelName = 64;
// Selection masks (019) in one GENIO block, as in MX.
constexpr int kMaxMasks = 1000;
// The longest quote of input in a message.
constexpr std::size_t kExcerptLength = 80;

// The text as messages quote it: cut after kExcerptLength characters with
// "..." added, NUL bytes shown as blanks.
std::string excerpt(std::string_view text);

}  // namespace korvane::engine
