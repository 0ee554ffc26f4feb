// Generate: the input beside a panel file hands every parameter to the macro
// as a variable, and the set's drawing parameter file gives `sheets` its count.
#include <gtest/gtest.h>

#include "base/fs.h"
#include "longsection/generated_input.h"
#include "longsection/panel_file.h"
#include "support/project.h"
#include "support/vectors.h"

namespace korvane::test {
namespace {

using longsection::Parameters;

// A stand-in for the macro in the project folder, found before the macro
// folders (tests/longsection/macro_stand_in.ipm), shows each variable it
// gets: tests/longsection/macro_stand_in.expected. Its default line gives
// StartChainage a value of its own, which the given empty value overrides.
TEST(LongsectionGenerate, TheMacroSeesEveryParameterAsAVariable) {
  TempProject project;
  const std::string folder = sourceDir() + "/tests/longsection/";
  project.write("longsection.ipm", fs::readFile(folder + "macro_stand_in.ipm").value_or(""));
  Parameters p;
  p.referenceModel = "DESIGN M1";
  p.masterString = "MAST";
  p.groundString = "LGND";
  p.designString = "LDES";
  p.extras = {{"KR01", "DASHED", "KERB"}};
  p.sheetSize = "A4";  // portrait: 210 mm across, 297 mm up
  p.landscape = false;
  p.endChainage = "1100";
  p.verticalScale = 50;
  const Messages texts(sourceDir() + "/data/English.lng");
  const std::string input = longsection::writeGeneratedInput(project.path("road_ls.ipd"), p, texts);
  ASSERT_EQ(input, project.path("road_ls.ipf"));
  Compiler c(project);
  ASSERT_TRUE(c.compile("road_ls.ipf")) << c.stopMessage();
  std::string got;
  for (const std::string& line : c.lines) got += line + "\n";
  expectFileHolds(folder + "macro_stand_in.expected", got);
}

TEST(LongsectionGenerate, SheetsReadsTheCountFromTheDrawingParameterFile) {
  TempProject project;
  Parameters p;
  for (int count : {3, 200}) {
    longsection::Extent extent{1000, 1100, count};
    ASSERT_TRUE(longsection::writeDrawingParameterFile(project.folder(), "road_ls", p, extent));
    project.write("n.ipf", "#n=sheets(road_ls)\r\n");
    Compiler c(project);
    ASSERT_TRUE(c.compile("n.ipf"));
    EXPECT_EQ(c.var("n"), std::to_string(count));
  }
}

}  // namespace
}  // namespace korvane::test
