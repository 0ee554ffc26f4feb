// The long-section panel's parameter sets: panel files written and read back,
// and the messages a set that cannot be drawn gets before anything runs.
#include <gtest/gtest.h>

#include "base/fs.h"
#include "base/messages.h"
#include "longsection/panel_file.h"
#include "longsection/validation.h"
#include "support/project.h"

namespace korvane::test {
namespace {

using longsection::Parameters;

Messages english() { return Messages(sourceDir() + "/data/English.lng"); }

Parameters drawable() {
  Parameters p;
  p.referenceModel = "DESIGN M1";
  p.masterString = "MAST";
  p.groundString = "LGND";
  p.designString = "LDES";
  return p;
}

// tests/longsection/every_parameter.ipd gives every parameter a value of its
// own, none the default (a further string longer than the 127 characters a
// settings value is cut at): read and written again it is the same file.
TEST(LongsectionPanelFile, EveryParameterComesBackAsWritten) {
  TempProject project;
  const std::string given =
      fs::readFile(sourceDir() + "/tests/longsection/every_parameter.ipd").value_or("");
  const Parameters p = longsection::readPanelFile(project.write("road.ipd", given));
  EXPECT_EQ(p.sheetSize, "Custom");
  EXPECT_FALSE(p.landscape);
  ASSERT_TRUE(longsection::writePanelFile(project.path("again.ipd"), p));
  EXPECT_EQ(project.read("again.ipd"), given);
  ASSERT_TRUE(longsection::writePanelFile(project.path("road.ipd"), p));  // over itself
  EXPECT_EQ(project.read("road.ipd"), given);
  EXPECT_EQ(longsection::panelFilesIn(project.folder()),
            (std::vector<std::string>{"again.ipd", "road.ipd"}));
}

TEST(LongsectionPanelFile, ADamagedFileKeepsTheDefaultsOfWhatItLacks) {
  TempProject project;
  project.write("old.ipd",
                "[Model]\r\nReferenceModelName=DESIGN M1\r\ngarbage without equals\r\n"
                "[Sheet]\r\nSheetSize=A1\r\nLandscape=0\r\n[Strings]\r\nCount=99\r\n"
                "String1=KR01\r\n");
  Parameters p = longsection::readPanelFile(project.path("old.ipd"));
  const Parameters defaults;
  EXPECT_EQ(p.referenceModel, "DESIGN M1");
  EXPECT_EQ(p.horizontalScale, defaults.horizontalScale);
  EXPECT_EQ(p.chainageInterval, defaults.chainageInterval);
  // A1 portrait: the short side (594 mm) across.
  EXPECT_EQ(p.sheetWidth, 594);
  EXPECT_EQ(p.sheetHeight, 841);
  ASSERT_EQ(p.extras.size(), 1u);
  EXPECT_EQ(p.extras[0].lineType, "CONTINUOUS");
  // A file that is not there at all gives the defaults.
  EXPECT_EQ(longsection::readPanelFile(project.path("none.ipd")).sheetSize, defaults.sheetSize);
}

TEST(LongsectionValidation, EachProblemGetsItsMessage) {
  const Messages texts = english();
  EXPECT_TRUE(longsection::validate(drawable(), nullptr, texts).empty());

  Parameters p = drawable();
  p.verticalScale = 0;
  p.startChainage = "120";
  p.endChainage = "80";
  p.sheetSize = "Custom";
  p.sheetHeight = 80;  // margins 20, bands 100: no room for the graph
  p.referenceModel.clear();
  EXPECT_EQ(longsection::validate(p, nullptr, texts),
            (std::vector<std::string>{
                "No reference model is given.", "The scales must be greater than 0.",
                "The sheet (420 x 80 mm) is too small for the bands and the graph.",
                "The start chainage 120 is not before the end chainage 80."}));

  p = drawable();
  p.startChainage = "km 3";
  p.designString = "";
  p.masterString = "MA\"S";
  EXPECT_EQ(longsection::validate(p, nullptr, texts),
            (std::vector<std::string>{"A name must not hold double quotes, bars or commas: MA\"S",
                                      "No design long-section string is chosen.",
                                      "Not a chainage: km 3"}));
}

TEST(LongsectionSheets, TheRangeIsCutIntoWholeSheets) {
  Parameters p;  // A3 landscape: 420 - 20 - 10 - 45 = 345 mm of graph, 345 m at 1:1000
  EXPECT_EQ(longsection::sheetChainageLength(p), 345);
  EXPECT_EQ(longsection::sheetCount(p, 0, 345), 1);
  EXPECT_EQ(longsection::sheetCount(p, 0, 345.5), 2);
  EXPECT_EQ(longsection::sheetCount(p, 100, 1135), 3);
  p.horizontalScale = 500;
  EXPECT_EQ(longsection::sheetCount(p, 0, 345), 2);
}

}  // namespace
}  // namespace korvane::test
