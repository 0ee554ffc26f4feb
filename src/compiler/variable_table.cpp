#include "compiler/variable_table.h"

#include <algorithm>

#include "base/text.h"
#include "base/texts/runtime_texts.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {

bool isTemporaryName(std::string_view name) { return text::startsWith(name, "zTMP"); }

namespace {
bool startsWithDigit(std::string_view name) {
  return !name.empty() && name[0] >= '0' && name[0] <= '9';
}
}  // namespace

std::size_t VariableTable::slotOf(std::string_view name, std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  const auto low = static_cast<std::uint32_t>(hash);
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    const Slot& s = slots_[i];
    if (s.entry == 0 || (s.hash == low && entries_[s.entry - 1].first == name)) return i;
  }
}

void VariableTable::addToIndex(std::size_t entry, std::uint64_t hash) {
  if ((entry + 1) * 2 > slots_.size()) {
    slots_.assign(slots_.size() * 2, Slot{});
    reindex();  // entry is already in entries_, so this indexes it too
    return;
  }
  slots_[slotOf(entries_[entry].first, hash)] =
      Slot{static_cast<std::uint32_t>(entry + 1), static_cast<std::uint32_t>(hash)};
}

void VariableTable::set(const std::string& name, std::string value) {
  checkTextLength(value.size());
  const std::uint64_t hash = text::hash(name);
  if (const Slot& s = slots_[slotOf(name, hash)]; s.entry != 0) {
    entries_[s.entry - 1].second = std::move(value);
    return;
  }
  if (entries_.size() >= kCapacity) throw RuntimeFailure(texts::runtime::kVariablesFull);
  if (name.empty() || isTemporaryName(name)) mayHoldTemporaries_ = true;
  if (!name.empty() && startsWithDigit(name)) mayHoldNumberNames_ = true;
  entries_.emplace_back(name, std::move(value));
  addToIndex(entries_.size() - 1, hash);
}

const std::string* VariableTable::find(std::string_view name) const {
  if (!mayHoldNumberNames_ && startsWithDigit(name)) return nullptr;
  const Slot& s = slots_[slotOf(name, text::hash(name))];
  return s.entry == 0 ? nullptr : &entries_[s.entry - 1].second;
}

void VariableTable::clear() {
  entries_.clear();
  std::fill(slots_.begin(), slots_.end(), Slot{});
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
  std::fill(slots_.begin(), slots_.end(), Slot{});
  // The index is at most half full already: adding never grows it here.
  for (std::size_t i = 0; i < entries_.size(); ++i) addToIndex(i, text::hash(entries_[i].first));
}

}  // namespace korvane
