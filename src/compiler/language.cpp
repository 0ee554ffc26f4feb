#include "compiler/language.h"

#include <algorithm>
#include <stdexcept>

namespace korvane {

void FunctionTable::add(std::string_view name, FunctionHandler handler) {
  rows_.insert_or_assign(std::string(name), handler);
}

FunctionHandler FunctionTable::find(std::string_view name) const {
  auto it = rows_.find(name);
  return it == rows_.end() ? nullptr : it->second;
}

std::vector<std::string> FunctionTable::names() const {
  std::vector<std::string> out;
  for (const auto& [name, handler] : rows_) out.push_back(name);
  return out;
}

void DirectiveTable::add(std::string_view keyword, Preparation preparation,
                         DirectiveHandler handler) {
  if (keyword.size() > kLongestKeyword) throw std::logic_error("keyword too long");
  rows_.insert_or_assign(std::string(keyword), DirectiveRow{std::move(preparation), handler});
  if (!keyword.empty()) endings_[keyword.size()].set(static_cast<unsigned char>(keyword.back()));
  std::size_t size = 64;
  while (size < rows_.size() * 4) size *= 2;  // at most a quarter full
  index_.assign(size, Slot{});
  for (const auto& [k, row] : rows_) {
    const std::size_t h = text::Hash{}(k);
    std::size_t i = h & (size - 1);
    while (index_[i].row) i = (i + 1) & (size - 1);
    index_[i] = Slot{h, &k, &row};
  }
}

const DirectiveRow* DirectiveTable::find(std::string_view keyword) const {
  if (index_.empty() || keyword.empty() || keyword.size() > kLongestKeyword ||
      !endings_[keyword.size()].test(static_cast<unsigned char>(keyword.back())))
    return nullptr;
  const std::size_t h = text::Hash{}(keyword);
  const std::size_t mask = index_.size() - 1;
  for (std::size_t i = h & mask; index_[i].row; i = (i + 1) & mask)
    if (index_[i].hash == h && *index_[i].keyword == keyword) return index_[i].row;
  return nullptr;
}

std::vector<std::string> DirectiveTable::keywords() const {
  std::vector<std::string> out;
  for (const auto& [k, row] : rows_) out.push_back(k);
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace korvane
