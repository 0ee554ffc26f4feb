#include "compiler/variable_table.h"

#include "base/text.h"
#include "compiler/compile_failure.h"
#include "compiler/expression.h"

namespace korvane {

bool isTemporaryName(std::string_view name) { return text::startsWith(name, "zTMP"); }

namespace {
bool startsWithDigit(std::string_view name) {
  return !name.empty() && name[0] >= '0' && name[0] <= '9';
}
}  // namespace

void VariableTable::set(const std::string& name, std::string value) {
  checkTextLength(value.size());
  auto it = index_.find(name);
  if (it != index_.end()) {
    entries_[it->second].second = std::move(value);
    return;
  }
  if (entries_.size() >= kCapacity) throw RuntimeFailure("vars");
  if (name.empty() || isTemporaryName(name)) mayHoldTemporaries_ = true;
  if (!name.empty() && startsWithDigit(name)) mayHoldNumberNames_ = true;
  index_.emplace(name, entries_.size());
  entries_.emplace_back(name, std::move(value));
}

const std::string* VariableTable::find(std::string_view name) const {
  if (!mayHoldNumberNames_ && startsWithDigit(name)) return nullptr;
  auto it = index_.find(name);
  return it == index_.end() ? nullptr : &entries_[it->second].second;
}

void VariableTable::clear() {
  entries_.clear();
  index_.clear();
  mayHoldTemporaries_ = mayHoldNumberNames_ = false;
}

void VariableTable::purgeTemporaries() {
  if (!mayHoldTemporaries_) return;
  std::vector<std::pair<std::string, std::string>> kept;
  kept.reserve(entries_.size());
  for (auto& e : entries_)
    if (!e.first.empty() && !isTemporaryName(e.first)) kept.push_back(std::move(e));
  entries_ = std::move(kept);
  mayHoldTemporaries_ = false;
  reindex();
}

std::vector<std::string> VariableTable::viewerItems() const {
  std::vector<std::string> items;
  for (const auto& [name, value] : entries_)
    if (!isTemporaryName(name)) items.push_back(name + "=" + value);
  return items;
}

void VariableTable::reindex() {
  index_.clear();
  for (std::size_t i = 0; i < entries_.size(); ++i) index_.emplace(entries_[i].first, i);
}

}  // namespace korvane
