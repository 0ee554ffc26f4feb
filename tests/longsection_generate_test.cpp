// Generate: the input beside a panel file hands every parameter to the macro
// as a variable, and the set's drawing parameter file gives `sheets` its count.
#include <gtest/gtest.h>

#include "base/fs.h"
#include "longsection/generated_input.h"
#include "longsection/panel_file.h"
#include "support/project.h"

namespace korvane::test {
namespace {

using longsection::Parameters;

TEST(LongsectionGenerate, TheMacroSeesEveryParameterAsAVariable) {
  TempProject project;
  // A stand-in for the macro in the project folder, found before the macro
  // folders: its default line takes the values the insert gives.
  project.write("longsection.ipm", "default\r\nStartChainage=\"none\"\r\ncrea,GOT\r\n");
  Parameters p;
  p.referenceModel = "DESIGN M1";
  p.masterString = "MAST";
  p.groundString = "LGND";
  p.designString = "LDES";
  p.extras = {{"KR01", "DASHED", "KERB"}};
  p.sheetSize = "A4";
  p.landscape = false;
  p.endChainage = "1100";
  p.verticalScale = 50;
  const Messages texts(sourceDir() + "/data/English.lng");
  const std::string input = longsection::writeGeneratedInput(project.path("road_ls.ipd"), p, texts);
  ASSERT_EQ(input, project.path("road_ls.ipf"));

  Compiler c(project);
  ASSERT_TRUE(c.compile("road_ls.ipf"));
  EXPECT_EQ(c.lines, std::vector<std::string>{"crea,GOT"});
  EXPECT_EQ(c.var("LongsectionSetName"), "road_ls");
  EXPECT_EQ(c.var("ReferenceModelName"), "DESIGN M1");
  EXPECT_EQ(c.var("MasterString"), "MAST");
  EXPECT_EQ(c.var("GroundLongsectionString"), "LGND");
  EXPECT_EQ(c.var("DesignLongsectionString"), "LDES");
  EXPECT_EQ(c.var("StartChainage"), "");  // the given empty value wins over the default
  EXPECT_EQ(c.var("EndChainage"), "1100");
  EXPECT_EQ(c.var("VerticalScale"), "50");
  EXPECT_EQ(c.var("HorizontalScale"), "1000");
  EXPECT_EQ(c.var("ChainageInterval"), "20");
  EXPECT_EQ(c.var("DatumLevel"), "");
  // A4 portrait: 210 mm across, 297 mm up.
  EXPECT_EQ(c.var("SheetWidth"), "210");
  EXPECT_EQ(c.var("SheetHeight"), "297");
  EXPECT_EQ(c.var("ExtraStringCount"), "1");
  EXPECT_EQ(c.var("ExtraString1"), "KR01");
  EXPECT_EQ(c.var("ExtraLineType1"), "DASHED");
  EXPECT_EQ(c.var("ExtraLayer1"), "KERB");
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
