// Sections of an input file as the sections list shows them, and the folder
// side of the main window: input files, Home, inside or outside the project.
#include "shell/input_sections.h"

#include <gtest/gtest.h>

#include "base/codepage.h"
#include "base/fs.h"
#include "shell/project_folder.h"
#include "support/project.h"

namespace korvane::test {
using Names = std::vector<std::string>;

TEST(InputSections, SectionLinesInFileOrder) {
  EXPECT_EQ(
      sectionsOf("[main]\r\ncrea,a\r\n[_helper] note\n[no close\n [indented]\n[end]\n[]\n[a]b]"),
      (Names{"main", "_helper", "end", "", "a"}));
  EXPECT_EQ(sectionsOf("[last]"), (Names{"last"}));
  EXPECT_EQ(sectionsOf("\r\r\n[x]\r"), (Names{"x"}));
  EXPECT_TRUE(sectionsOf("").empty());

  TempProject p;
  const std::string road = p.write("road.ipf", "[main]\r\n[_helper]\r\n[main]\r\n");
  EXPECT_EQ(readSections(road), (Names{"main", "_helper", "main"}));
  EXPECT_EQ(readSections(p.path("gone.ipf")), std::nullopt);
  EXPECT_EQ(readSections(p.folder()), std::nullopt);  // a folder is no input file
}

TEST(ProjectFolder, InputFilesSubfoldersAndHome) {
  TempProject p;
  p.write("b.ipf", "");
  p.write("A.IPF", "");
  p.write("c.ipm", "");
  p.write("road.ipf.bak", "");
  p.write("folder.ipf/x.txt", "");
  p.write("Zeta/x.txt", "");
  EXPECT_EQ(inputFiles(p.folder()), (Names{"A.IPF", "b.ipf"}));
  EXPECT_EQ(subfolders(p.folder()), (Names{"folder.ipf", "Zeta"}));
  EXPECT_TRUE(inputFiles(p.path("gone")).empty());

  const std::string project = fs::withTrailingSeparator(p.folder());
  EXPECT_EQ(homeFolder(project), p.folder());  // no inputs folder
  p.write("inputs/road.ipf", "");
  EXPECT_EQ(homeFolder(project), p.path("inputs"));
}

TEST(ProjectFolder, InsideTheProjectComparesWithTheSeparator) {
  const std::string work = std::string(1, fs::kSep) + "work";
  const std::string base = fs::join(work, "Proj");
  const std::string proj = fs::withTrailingSeparator(base);
  EXPECT_TRUE(insideProject(base, proj));
  EXPECT_TRUE(insideProject(fs::join(base, "inputs"), proj));
  EXPECT_TRUE(insideProject(cp::upper(base), proj));  // letter case does not count
  EXPECT_FALSE(insideProject(base + "2", proj));      // Proj2 beside Proj
  EXPECT_FALSE(insideProject(work, proj));
}

TEST(ProjectFolder, VanishedFoldersAndTheChainOfAncestors) {
  TempProject p;
  p.write("a/b/x.txt", "");
  EXPECT_EQ(nearestExistingFolder(p.path("a/b")), p.path("a/b"));
  EXPECT_EQ(nearestExistingFolder(fs::join(p.path("a"), "gone")), p.path("a"));
  EXPECT_EQ(nearestExistingFolder(fs::join(fs::join(p.path("a"), "gone"), "deeper")), p.path("a"));

  const auto chain = folderChain(p.path("a"));
  ASSERT_GE(chain.size(), 3u);
  EXPECT_EQ(chain.back(), p.path("a"));
  EXPECT_EQ(chain[chain.size() - 2], p.folder());
  EXPECT_TRUE(fs::isAbsolute(chain.front()));
  for (std::size_t i = 1; i < chain.size(); ++i)
    EXPECT_EQ(chain[i].rfind(fs::withTrailingSeparator(chain[i - 1]), 0), 0u) << chain[i];
}

}  // namespace korvane::test
