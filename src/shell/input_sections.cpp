#include "shell/input_sections.h"

#include "base/fs.h"

namespace korvane {

std::string labelName(const std::string& label) {
  std::string name = label;
  if (!name.empty() && name.front() == '[') name.erase(0, 1);
  if (std::size_t close = name.find(']'); close != std::string::npos) name.resize(close);
  return name;
}

std::vector<std::string> sectionsOf(std::string_view text) {
  std::vector<std::string> names;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = text.substr(pos, end - pos);
    if (!line.empty() && line.front() == '[') {
      const std::size_t close = line.find(']');
      if (close != std::string_view::npos) names.emplace_back(line.substr(1, close - 1));
    }
    pos = end;
    if (pos < text.size() && text[pos] == '\r') ++pos;
    if (pos < text.size() && text[pos] == '\n') ++pos;
  }
  return names;
}

std::optional<std::vector<std::string>> readSections(const std::string& path) {
  const auto size = fs::fileSize(path);
  if (!size || *size > kSectionScanLimit) return std::nullopt;
  const auto text = fs::readFile(path);
  if (!text) return std::nullopt;
  return sectionsOf(*text);
}

}  // namespace korvane
