// The to-run list: what Pick and Pick all add, moving a selected run, deleting
// and copying.
#include "shell/to_run_list.h"

#include <gtest/gtest.h>

#include "base/fs.h"

namespace korvane::test {

namespace {

const std::string kFolder = fs::withoutTrailingSeparator(fs::join("proj", "inputs"));
const std::string kRoad = fs::join(kFolder, "road.ipf");

ToRunList fiveEntries(std::initializer_list<int> selected, int current) {
  ToRunList l;
  for (const char* e : {"e1", "e2", "e3", "e4", "e5"}) l.add(e);
  for (int i : selected) l.selected[i - 1] = true;  // 1-based, as users count
  l.current = current - 1;
  return l;
}

std::vector<int> selectedNumbers(const ToRunList& l) {
  std::vector<int> out;
  for (std::size_t i = 0; i < l.selected.size(); ++i)
    if (l.selected[i]) out.push_back(static_cast<int>(i) + 1);
  return out;
}

using Entries = std::vector<std::string>;

}  // namespace

TEST(ToRunPick, SectionsPrivateSectionsAndWholeFiles) {
  EXPECT_EQ(runEntryFor(kFolder, "road.ipf"), kRoad);
  EXPECT_EQ(runEntryFor(kFolder + fs::kSep, "road.ipf", "main"), kRoad + " [main]");

  // Pick all over main, _helper, end: the private helper is left out.
  EXPECT_EQ(pickedAllEntries(kFolder, "road.ipf", {"main", "_helper", "end"}),
            (Entries{kRoad + " [main]", kRoad + " [end]"}));
  EXPECT_TRUE(pickedAllEntries(kFolder, "road.ipf", {}).empty());

  const std::string main = "main", helper = "_helper";
  EXPECT_EQ(pickedEntry(kFolder, "road.ipf", true, &main), kRoad + " [main]");
  EXPECT_EQ(pickedEntry(kFolder, "road.ipf", true, &helper), "");
  EXPECT_EQ(pickedEntry(kFolder, "road.ipf", true, nullptr), "");  // no section selected
  EXPECT_EQ(pickedEntry(kFolder, "road.ipf", false, nullptr), kRoad);
  EXPECT_EQ(pickedEntry(kFolder, "", false, nullptr), "");  // no file selected
  EXPECT_TRUE(isPrivateSection("_x"));
  EXPECT_FALSE(isPrivateSection("x_"));
  EXPECT_FALSE(isPrivateSection(""));

  // Duplicates are allowed.
  ToRunList l;
  l.add(pickedEntry(kFolder, "road.ipf", true, &main));
  l.add(pickedEntry(kFolder, "road.ipf", true, &main));
  EXPECT_EQ(l.entries, (Entries{kRoad + " [main]", kRoad + " [main]"}));
}

TEST(ToRunMove, ContiguousRunsMoveAndGapsDoNot) {
  ToRunList l = fiveEntries({2, 3}, 3);
  EXPECT_EQ(l.selectedRun().first, 1);
  EXPECT_EQ(l.selectedRun().count, 2);
  ASSERT_TRUE(l.moveUp());  // entry 1 goes below the run
  EXPECT_EQ(l.entries, (Entries{"e2", "e3", "e1", "e4", "e5"}));
  EXPECT_EQ(selectedNumbers(l), (std::vector<int>{1, 2}));
  EXPECT_EQ(l.current, 1);   // e3 keeps the focus
  EXPECT_FALSE(l.moveUp());  // at the top already
  ASSERT_TRUE(l.moveDown());
  ASSERT_TRUE(l.moveDown());
  EXPECT_EQ(l.entries, (Entries{"e1", "e4", "e2", "e3", "e5"}));
  EXPECT_EQ(selectedNumbers(l), (std::vector<int>{3, 4}));
  ASSERT_TRUE(l.moveDown());
  EXPECT_FALSE(l.moveDown());  // at the bottom
  EXPECT_EQ(l.entries, (Entries{"e1", "e4", "e5", "e2", "e3"}));

  ToRunList gap = fiveEntries({2, 4}, 4);
  EXPECT_EQ(gap.selectedRun().count, 0);
  EXPECT_FALSE(gap.moveUp());
  EXPECT_FALSE(gap.moveDown());
  EXPECT_EQ(gap.entries, (Entries{"e1", "e2", "e3", "e4", "e5"}));

  ToRunList none = fiveEntries({}, 1);
  EXPECT_EQ(none.selectedRun().first, -1);
  EXPECT_FALSE(none.moveDown());
}

TEST(ToRunDelete, CurrentPositionSurvivesAndCopyAllUsesCrLf) {
  ToRunList last = fiveEntries({5}, 5);
  last.deleteSelected();
  EXPECT_EQ(last.entries, (Entries{"e1", "e2", "e3", "e4"}));
  EXPECT_EQ(last.current, 3);  // the new last entry
  EXPECT_EQ(selectedNumbers(last), (std::vector<int>{4}));

  ToRunList middle = fiveEntries({2, 4}, 2);
  middle.deleteSelected();
  EXPECT_EQ(middle.entries, (Entries{"e1", "e3", "e5"}));
  EXPECT_EQ(middle.current, 1);
  EXPECT_EQ(selectedNumbers(middle), (std::vector<int>{2}));

  ToRunList noCurrent = fiveEntries({1}, 0);
  noCurrent.deleteSelected();
  EXPECT_EQ(noCurrent.entries.size(), 5u);

  ToRunList all = fiveEntries({1, 2, 3, 4, 5}, 3);
  all.deleteSelected();
  EXPECT_TRUE(all.entries.empty());
  EXPECT_EQ(all.current, -1);

  ToRunList two;
  two.add("a b [main]");
  two.add("c");
  EXPECT_EQ(two.copyAllText(), "a b [main]\r\nc\r\n");
  two.clear();
  EXPECT_EQ(two.copyAllText(), "");
}

}  // namespace korvane::test
