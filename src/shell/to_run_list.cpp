#include "shell/to_run_list.h"

#include <algorithm>

#include "base/fs.h"

namespace korvane {

std::string runEntryFor(std::string_view folder, std::string_view fileName,
                        std::string_view section) {
  std::string entry = fs::join(folder, fileName);
  if (!section.empty()) entry += " [" + std::string(section) + "]";
  return entry;
}

bool isPrivateSection(std::string_view name) { return !name.empty() && name.front() == '_'; }

std::string pickedEntry(std::string_view folder, std::string_view fileName, bool hasSections,
                        const std::string* selectedSection) {
  if (fileName.empty()) return {};
  if (!hasSections) return runEntryFor(folder, fileName);
  if (!selectedSection || isPrivateSection(*selectedSection)) return {};
  return runEntryFor(folder, fileName, *selectedSection);
}

std::vector<std::string> pickedAllEntries(std::string_view folder, std::string_view fileName,
                                          const std::vector<std::string>& sections) {
  std::vector<std::string> out;
  for (const auto& s : sections) {
    std::string e = pickedEntry(folder, fileName, true, &s);
    if (!e.empty()) out.push_back(std::move(e));
  }
  return out;
}

void ToRunList::add(std::string entry) {
  entries.push_back(std::move(entry));
  selected.push_back(false);
}

SelectedRun ToRunList::selectedRun() const {
  SelectedRun run;
  const int n = static_cast<int>(std::min(entries.size(), selected.size()));
  for (int i = 0; i < n; ++i) {
    if (!selected[i]) continue;
    if (run.first < 0) run.first = i;
    ++run.count;
  }
  if (run.first >= 0)
    for (int i = run.first; i < run.first + run.count; ++i)
      if (!selected[i]) run.count = 0;  // a gap: not one run
  return run;
}

bool ToRunList::moveUp() {
  const SelectedRun run = selectedRun();
  if (run.count == 0 || run.first == 0) return false;
  // The entry above the run goes just below it.
  std::rotate(entries.begin() + run.first - 1, entries.begin() + run.first,
              entries.begin() + run.first + run.count);
  std::rotate(selected.begin() + run.first - 1, selected.begin() + run.first,
              selected.begin() + run.first + run.count);
  if (current >= run.first - 1 && current < run.first + run.count)
    current = current == run.first - 1 ? run.first + run.count - 1 : current - 1;
  return true;
}

bool ToRunList::moveDown() {
  const SelectedRun run = selectedRun();
  const int end = run.first + run.count;
  if (run.count == 0 || end >= static_cast<int>(entries.size())) return false;
  // The entry below the run goes just above it.
  std::rotate(entries.begin() + run.first, entries.begin() + end, entries.begin() + end + 1);
  std::rotate(selected.begin() + run.first, selected.begin() + end, selected.begin() + end + 1);
  if (current >= run.first && current <= end) current = current == end ? run.first : current + 1;
  return true;
}

void ToRunList::deleteSelected() {
  if (current < 0) return;
  selected.resize(entries.size(), false);
  for (int i = static_cast<int>(entries.size()) - 1; i >= 0; --i) {
    if (!selected[i]) continue;
    entries.erase(entries.begin() + i);
    selected.erase(selected.begin() + i);
  }
  const int n = static_cast<int>(entries.size());
  current = n == 0 ? -1 : std::min(current, n - 1);
  if (current >= 0) selected[current] = true;
}

void ToRunList::clear() {
  entries.clear();
  selected.clear();
  current = -1;
}

std::string ToRunList::copyAllText() const {
  std::string text;
  for (const auto& e : entries) text += e + "\r\n";
  return text;
}

}  // namespace korvane
