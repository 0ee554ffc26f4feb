#include "commands/label_order.h"

#include "base/codepage.h"
#include "base/text.h"

namespace korvane::commands {

namespace {

// Four columns from `at`, fewer where the line ends.
std::string_view field(std::string_view line, std::size_t at) {
  return at < line.size() ? line.substr(at, 4) : std::string_view();
}

// Writes a label over four columns from `at`, as far as the line reaches: a
// short header line keeps its length.
void writeOver(std::string& line, std::size_t at, const std::string& label) {
  for (std::size_t k = 0; k < 4 && at + k < line.size(); ++k) line[at + k] = label[k];
}

}  // namespace

std::optional<LabelOrder> parseLabelOrder(std::string_view value) {
  if (value.size() < 4) return std::nullopt;
  LabelOrder order;
  for (int k = 0; k < 4; ++k) {
    const char c = value[k];
    if (c < '1' || c > '4') return std::nullopt;
    order.from[k] = c - '1';
  }
  return order;
}

std::string fourCharacters(std::string_view label) {
  std::string s(label.substr(0, 4));
  s.resize(4, ' ');
  return s;
}

std::string permuteLabel(std::string_view label, const LabelOrder& order) {
  const std::string old = fourCharacters(label);
  std::string result(4, ' ');
  for (int k = 0; k < 4; ++k) result[k] = old[order.from[k]];
  return result;
}

std::string relabelHeader(std::string_view line, const LabelOrder& order) {
  std::string out(line);
  if (!text::startsWith(out, "080,")) return out;
  const std::string first = fourCharacters(field(out, 4)), second = fourCharacters(field(out, 9));
  writeOver(out, 4, permuteLabel(first, order));
  const char lead = cp::toUpper(first[0]);
  if ((lead == 'G' || lead == 'M') && second.substr(1) == first.substr(1))
    writeOver(out, 9, permuteLabel(second, order));
  return out;
}

}  // namespace korvane::commands
