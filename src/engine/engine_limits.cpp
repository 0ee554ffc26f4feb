#include "engine/engine_limits.h"

namespace korvane::engine {

std::string excerpt(std::string_view text) {
  std::string out(text.substr(0, kExcerptLength));
  for (char& c : out)
    if (c == '\0') c = ' ';
  if (text.size() > kExcerptLength) out += "...";
  return out;
}

}  // namespace korvane::engine
