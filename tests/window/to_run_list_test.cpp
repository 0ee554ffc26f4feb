// The to-run list: what Pick and Pick all add, moving a selected run and
// deleting (copying it is tests/window/qt/window_lists_test.cpp).
#include "shell/to_run_list.h"

#include <gtest/gtest.h>

#include <sstream>

#include "base/fs.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

const std::string kFolder = fs::withoutTrailingSeparator(fs::join("proj", "inputs"));
const std::string kRoad = fs::join(kFolder, "road.ipf");
using Entries = std::vector<std::string>;

// A list as tests/vectors/to_run_list.txt writes it: "[e2]" selected, "*e3" current.
ToRunList listOf(const std::string& text) {
  ToRunList l;
  std::istringstream words(text);
  for (std::string w; words >> w;) {
    const bool selected = w.front() == '[';
    if (selected) w = w.substr(1, w.size() - 2);
    if (w.front() == '*') l.current = static_cast<int>(l.entries.size());
    l.add(w.substr(w.front() == '*'));
    l.selected.back() = selected;
  }
  return l;
}
std::string textOf(const ToRunList& l) {
  std::string out;
  for (std::size_t i = 0; i < l.entries.size(); ++i) {
    const std::string e = (l.current == static_cast<int>(i) ? "*" : "") + l.entries[i];
    out += (i ? " " : "") + (l.selected[i] ? "[" + e + "]" : e);
  }
  return out;
}

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
}

TEST(ToRunList, MovesAndDeletes) {
  for (const auto& v : readVectors("to_run_list.txt", 3)) {
    ToRunList l = listOf(v.fields[0]);
    bool moved = true;
    if (v.fields[1] == "up")
      moved = l.moveUp();
    else if (v.fields[1] == "down")
      moved = l.moveDown();
    else
      l.deleteSelected();
    const bool unchanged = v.fields[2] == "unchanged";
    EXPECT_EQ(moved, !unchanged || v.fields[1] == "delete") << v.where;
    EXPECT_EQ(textOf(l), unchanged ? v.fields[0] : v.fields[2]) << v.where;
  }
}

}  // namespace korvane::test
