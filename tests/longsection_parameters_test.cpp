// The long-section panel's parameter sets: panel files written and read back,
// and the messages a set that cannot be drawn gets before anything runs.
#include <gtest/gtest.h>

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

TEST(LongsectionPanelFile, EveryParameterComesBackAsWritten) {
  TempProject project;
  Parameters p = drawable();
  p.extras = {{"KR01", "DASHED", "KERB"}, {"DR01", "CONTINUOUS", "LS_EXTRA"}};
  p.horizontalScale = 500;
  p.verticalScale = 50;
  p.sheetSize = "Custom";
  p.sheetWidth = 1000.5;
  p.sheetHeight = 300;
  p.marginLeft = 25;
  p.marginBottom = 7.5;
  p.startChainage = "20";
  p.endChainage = "";
  p.chainageInterval = 25;
  p.gradeChangeColumns = false;
  p.datumLevel = "95.5";
  p.textHeight = 3;
  p.designLineType = "DASHED";
  const std::string file = project.path("road.ipd");
  ASSERT_TRUE(longsection::writePanelFile(file, p));

  Parameters back = longsection::readPanelFile(file);
  EXPECT_EQ(back.referenceModel, "DESIGN M1");
  EXPECT_EQ(back.groundString, "LGND");
  EXPECT_EQ(back.designString, "LDES");
  ASSERT_EQ(back.extras.size(), 2u);
  EXPECT_EQ(back.extras[0].lineType, "DASHED");
  EXPECT_EQ(back.extras[0].layer, "KERB");
  EXPECT_EQ(back.extras[1].label, "DR01");
  EXPECT_EQ(back.horizontalScale, 500);
  EXPECT_EQ(back.verticalScale, 50);
  EXPECT_EQ(back.sheetSize, "Custom");
  EXPECT_EQ(back.sheetWidth, 1000.5);
  EXPECT_EQ(back.marginBottom, 7.5);
  EXPECT_EQ(back.startChainage, "20");
  EXPECT_EQ(back.endChainage, "");
  EXPECT_EQ(back.chainageInterval, 25);
  EXPECT_FALSE(back.gradeChangeColumns);
  EXPECT_EQ(back.datumLevel, "95.5");
  EXPECT_EQ(back.designLineType, "DASHED");

  // Saving again over the same file changes nothing.
  const std::string first = project.read("road.ipd");
  ASSERT_TRUE(longsection::writePanelFile(file, back));
  EXPECT_EQ(project.read("road.ipd"), first);
  EXPECT_EQ(longsection::panelFilesIn(project.folder()), std::vector<std::string>{"road.ipd"});
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
  const auto problems = longsection::validate(p, nullptr, texts);
  const std::vector<std::string> expected = {
      texts.text({"Longsection", "nomodel"}), texts.text({"Longsection", "scale"}),
      texts.format({"Longsection", "sheetsmall"}, "420", "80"),
      texts.format({"Longsection", "range"}, "120", "80")};
  EXPECT_EQ(problems, expected);

  p = drawable();
  p.startChainage = "km 3";
  p.designString = "";
  p.masterString = "MA\"S";
  const auto more = longsection::validate(p, nullptr, texts);
  ASSERT_EQ(more.size(), 3u);
  EXPECT_EQ(more[0], texts.format({"Longsection", "badname"}, "MA\"S"));
  EXPECT_EQ(more[1],
            texts.format({"Longsection", "nostring"}, texts.text({"Longsection", "design"})));
  EXPECT_EQ(more[2], texts.format({"Longsection", "chainage"}, "km 3"));
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
