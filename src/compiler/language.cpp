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
}

const DirectiveRow* DirectiveTable::find(std::string_view keyword) const {
  if (keyword.empty() || keyword.size() > kLongestKeyword ||
      !endings_[keyword.size()].test(static_cast<unsigned char>(keyword.back())))
    return nullptr;
  auto it = rows_.find(keyword);
  return it == rows_.end() ? nullptr : &it->second;
}

std::vector<std::string> DirectiveTable::keywords() const {
  std::vector<std::string> out;
  for (const auto& [k, row] : rows_) out.push_back(k);
  std::sort(out.begin(), out.end());
  return out;
}

}  // namespace korvane
