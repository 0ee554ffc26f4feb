#include "compiler/language.h"

#include <algorithm>
#include <stdexcept>

#include "base/text.h"

namespace korvane {

void FunctionTable::add(FunctionRows rows) {
  for (const FunctionRow& row : rows) rows_.insert_or_assign(row.name, row.handler);
}

FunctionHandler FunctionTable::find(std::string_view name) const {
  auto it = rows_.find(name);
  return it == rows_.end() ? nullptr : it->second;
}

std::vector<std::string> FunctionTable::names() const {
  std::vector<std::string> out;
  for (const auto& [name, handler] : rows_) out.emplace_back(name);
  return out;
}

void DirectiveTable::add(DirectiveRows rows) {
  for (const DirectiveRow& row : rows) add(row);
}

void DirectiveTable::add(const DirectiveRow& row) {
  const std::string_view k = row.keyword;
  if (k.empty() || k.size() > kLongestKeyword) throw std::logic_error("keyword length");
  endings_[k.size()].set(static_cast<unsigned char>(k.back()));
  if ((used_ + 1) * 4 > index_.size()) {
    std::vector<Slot> old = std::move(index_);
    index_.assign(std::max<std::size_t>(64, old.size() * 2), Slot{});
    used_ = 0;
    for (const Slot& s : old)
      if (s.row) place(s);
  }
  place(Slot{text::Hash{}(k), &row});
}

void DirectiveTable::place(const Slot& slot) {
  const std::size_t mask = index_.size() - 1;
  std::size_t i = slot.hash & mask;
  while (index_[i].row && index_[i].row->keyword != slot.row->keyword) i = (i + 1) & mask;
  if (!index_[i].row) ++used_;
  index_[i] = slot;
}

const DirectiveRow* DirectiveTable::find(std::string_view keyword) const {
  if (index_.empty() || keyword.empty() || keyword.size() > kLongestKeyword ||
      !endings_[keyword.size()].test(static_cast<unsigned char>(keyword.back())))
    return nullptr;
  const std::size_t h = text::Hash{}(keyword);
  const std::size_t mask = index_.size() - 1;
  for (std::size_t i = h & mask; index_[i].row; i = (i + 1) & mask)
    if (index_[i].hash == h && index_[i].row->keyword == keyword) return index_[i].row;
  return nullptr;
}

std::vector<std::string> DirectiveTable::keywords() const {
  std::vector<std::string> out;
  for (const Slot& s : index_)
    if (s.row) out.emplace_back(s.row->keyword);
  std::sort(out.begin(), out.end());
  return out;
}

LanguageTables::LanguageTables(std::initializer_list<DirectiveRows> directives,
                               std::initializer_list<FunctionRows> functions) {
  for (DirectiveRows rows : directives) this->directives.add(rows);
  for (FunctionRows rows : functions) this->functions.add(rows);
}

}  // namespace korvane
