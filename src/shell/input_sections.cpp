#include "shell/input_sections.h"

#include "base/fs.h"

namespace korvane {

std::string labelName(const std::string& label) {
  std::string name = label;
  if (!name.empty() && name.front() == '[') name.erase(0, 1);
  if (std::size_t close = name.find(']'); close != std::string::npos) name.resize(close);
  return name;
}

std::vector<SectionHead> sectionHeadsOf(std::string_view text) {
  std::vector<SectionHead> heads;
  std::size_t pos = 0;
  long line = 0;
  while (pos < text.size()) {
    ++line;
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view row = text.substr(pos, end - pos);
    if (!row.empty() && row.front() == '[') {
      const std::size_t close = row.find(']');
      if (close != std::string_view::npos)
        heads.push_back({std::string(row.substr(1, close - 1)), line});
    }
    pos = end;
    if (pos < text.size() && text[pos] == '\r') ++pos;
    if (pos < text.size() && text[pos] == '\n') ++pos;
  }
  return heads;
}

std::vector<std::string> sectionsOf(std::string_view text) {
  std::vector<std::string> names;
  for (SectionHead& h : sectionHeadsOf(text)) names.push_back(std::move(h.name));
  return names;
}

std::optional<std::vector<SectionHead>> readSectionHeads(const std::string& path) {
  const auto size = fs::fileSize(path);
  if (!size || *size > kSectionScanLimit) return std::nullopt;
  const auto text = fs::readFile(path);
  if (!text) return std::nullopt;
  return sectionHeadsOf(*text);
}

std::optional<std::vector<std::string>> readSections(const std::string& path) {
  auto heads = readSectionHeads(path);
  if (!heads) return std::nullopt;
  std::vector<std::string> names;
  for (SectionHead& h : *heads) names.push_back(std::move(h.name));
  return names;
}

}  // namespace korvane
