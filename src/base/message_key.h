// The name of a text of the language file: its section and its key. Every key
// the program uses is a constant of base/texts/, one header a section, and is
// written nowhere else.
#pragma once

#include <string_view>

namespace korvane {

struct MessageKey {
  constexpr MessageKey(std::string_view section, std::string_view key)
      : section(section), key(key) {}
  bool operator==(const MessageKey&) const = default;

  std::string_view section;
  std::string_view key;
};

}  // namespace korvane
