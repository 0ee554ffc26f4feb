// The to-run list of the main window as plain data: its entries, which of
// them are selected and which is current, and the operations of the Pick,
// Move, Delete and Copy commands on it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// A run entry for a whole input file (empty section) or for one section of it.
std::string runEntryFor(std::string_view folder, std::string_view fileName,
                        std::string_view section = {});

// Sections whose names begin with "_" are private helpers of other sections:
// they are listed but never picked.
bool isPrivateSection(std::string_view name);

// What Pick adds for the selected input file: with sections listed, the
// selected section unless it is private (nothing without a selected section);
// without sections, the whole file. Empty when nothing is to be added.
std::string pickedEntry(std::string_view folder, std::string_view fileName, bool hasSections,
                        const std::string* selectedSection);

// What Pick all adds: one entry for each section that is not private.
std::vector<std::string> pickedAllEntries(std::string_view folder, std::string_view fileName,
                                          const std::vector<std::string>& sections);

// The selected run that Move up and Move down move: its first index (-1 when
// nothing is selected) and its length, 0 when the selection is not contiguous.
struct SelectedRun {
  int first = -1;
  int count = 0;
};

struct ToRunList {
  std::vector<std::string> entries;
  std::vector<bool> selected;  // one flag an entry
  int current = -1;            // the entry with the focus, -1 for none

  void add(std::string entry);
  SelectedRun selectedRun() const;
  // Move the selected run one place; false (and nothing changed) when the
  // selection is not one contiguous run or already at that end.
  bool moveUp();
  bool moveDown();
  // Removes the selected entries when there is a current entry; the entry now
  // at the old current position (or the last one) becomes current and selected.
  void deleteSelected();
  void clear();
  // All entries, each followed by CR LF, for the clipboard.
  std::string copyAllText() const;
};

}  // namespace korvane
