// The variable table of a compile run: up to 2000 (name, value) texts in the
// order they were added, exact case-sensitive names, no scoping.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"

namespace korvane {

class VariableTable {
 public:
  static constexpr std::size_t kCapacity = 2000;

  // Replaces the value of the entry of that name or appends one; appending
  // beyond the capacity is a run-time failure.
  void set(const std::string& name, std::string value);
  // The value, or null when there is no such variable.
  const std::string* find(std::string_view name) const;
  void clear();
  std::size_t size() const { return entries_.size(); }
  const std::vector<std::pair<std::string, std::string>>& entries() const { return entries_; }

  // Drops the evaluator's temporaries ("zTMP...") and empty names, keeping the
  // order of the rest.
  void purgeTemporaries();
  // The table as the variables viewer lists it: name=value, no temporaries.
  std::vector<std::string> viewerItems() const;

 private:
  // An open-addressing index over entries_: each slot holds an entry's
  // position + 1 (0 is free) and the low bits of its name's hash, so a lookup
  // compares names only on a likely match. Entries are never removed one by
  // one, so no slot needs a tombstone: a purge rebuilds the index.
  struct Slot {
    std::uint32_t entry = 0;
    std::uint32_t hash = 0;
  };
  // The slot of `name`, or the free slot where it would go.
  std::size_t slotOf(std::string_view name, std::uint64_t hash) const;
  void addToIndex(std::size_t entry, std::uint64_t hash);
  void reindex();

  std::vector<std::pair<std::string, std::string>> entries_;
  std::vector<Slot> slots_ = std::vector<Slot>(64);  // a power of two, at most half full
  bool mayHoldTemporaries_ = false;
  // Whether a name begins with a digit: until one does, a number is never
  // looked up, which saves a hash for every number in every expression.
  bool mayHoldNumberNames_ = false;
};

bool isTemporaryName(std::string_view name);

}  // namespace korvane
