// The window's [Position] keys: reading values as 16-bit integers, writing
// them back in their order, keeping the window on the screen, the folder
// panel's start-up rule and slide, the save modes and the last file.
#include "shell/window_settings.h"

#include <gtest/gtest.h>

#include "base/fs.h"
#include "base/profile.h"
#include "support/project.h"

namespace korvane::test {

namespace {

std::string ini(const std::string& position) {
  return "[Language]\r\nlang=English\r\n[Position]\r\n" + position + "[Files]\r\ninpf=complete\r\n";
}

}  // namespace

TEST(WindowSettingsFile, ValuesReadAs16BitIntegersOrNotAtAll) {
  TempProject p;
  const std::string file = p.write(
      "Korvane.ini", ini("Top=-200\r\nLeft=abc\r\nWidth=70000\r\nHeight= 480 \r\ndirWidth=2400\r\n"
                         "inpWidth=1.5e3\r\nDir=true\r\nSaveSingleFile=1\r\nSaveSeparateFiles=7\r\n"
                         "LastFile=C:\\proj\\road.ipf\r\n"));
  const WindowSettings s = readWindowSettings(file);
  EXPECT_EQ(s.top, std::int16_t(-200));
  EXPECT_EQ(s.left, std::nullopt);   // not a number
  EXPECT_EQ(s.width, std::nullopt);  // beyond 16 bits
  EXPECT_EQ(s.height, std::int16_t(480));
  EXPECT_EQ(s.dirWidth, std::int16_t(2400));
  EXPECT_EQ(s.inpWidth, std::int16_t(1500));
  EXPECT_EQ(s.subWidth, std::nullopt);  // missing
  EXPECT_EQ(s.dir, true);
  EXPECT_EQ(s.saveOne, kBevelPressed);
  EXPECT_EQ(s.saveSeparate, kBevelRaised);  // anything but 1 is raised
  EXPECT_EQ(s.lastFile, "C:\\proj\\road.ipf");

  const WindowSettings empty = readWindowSettings(p.path("missing.ini"));
  EXPECT_EQ(empty.dir, std::nullopt);
  EXPECT_EQ(empty.saveOne, std::nullopt);  // the panel stays as designed
}

TEST(WindowSettingsFile, WrittenInOrderAndReadBack) {
  TempProject p;
  const std::string file = p.write("Korvane.ini", ini("; layout\r\nTop=1\r\n"));
  WindowState st;
  st.top = 600;
  st.left = 300;
  st.width = 40000;  // a window wider than 16 bits hold
  st.height = 7200;
  st.dir = false;
  st.dirWidth = 2400;
  st.inpWidth = 2000;
  st.subWidth = 1800;
  st.runWidth = 3600;
  st.saveOne = kBevelPressed;
  st.lastFile = lastFileValue(p.folder(), "");
  ASSERT_TRUE(writeWindowSettings(file, st));
  EXPECT_EQ(p.read("Korvane.ini"),
            ini("; layout\r\nTop=600\r\nLeft=300\r\nWidth=32767\r\nHeight=7200\r\nDir=False\r\n"
                "dirWidth=2400\r\ninpWidth=2000\r\nsubWidth=1800\r\nrunWidth=3600\r\n"
                "SaveSingleFile=1\r\nSaveSeparateFiles=2\r\nLastFile=" +
                fs::withTrailingSeparator(p.folder()) + "\r\n"));
  const WindowSettings back = readWindowSettings(file);
  EXPECT_EQ(back.width, std::int16_t(32767));
  EXPECT_EQ(back.dir, false);
  EXPECT_EQ(back.saveOne, kBevelPressed);
  EXPECT_EQ(back.saveSeparate, kBevelRaised);

  ASSERT_TRUE(writeFolderPanelShown(file, true));
  EXPECT_EQ(ReadProfileString("Position", "Dir", file), "True");
}

// A window designed at 600, 600, 9000 by 6000 twips on a screen of 19200 by 10800.
TEST(WindowGeometry, KeptOnTheScreen) {
  using V = std::optional<std::int16_t>;
  const auto placed = [](V top, V left, V width, V height) {
    WindowSettings s;
    s.top = top;
    s.left = left;
    s.width = width;
    s.height = height;
    const Geometry g = restoredGeometry(s, {600, 600, 9000, 6000}, 19200, 10800);
    return std::to_string(g.top) + "," + std::to_string(g.left) + " " + std::to_string(g.width) +
           "x" + std::to_string(g.height);
  };
  EXPECT_EQ(placed(-200, 20000, {}, {}), "0,0 9000x6000");  // off the screen: at its edge
  // Wider than the screen: cut, then moved left and up to fit.
  EXPECT_EQ(placed(9000, 15000, 25000, 4000), "6800,0 19200x4000");
  EXPECT_EQ(placed({}, {}, -5, 0), "600,600 9000x6000");  // sizes that cannot be: as designed
}

TEST(FolderPanel, StartUpRuleAndSlideSteps) {
  EXPECT_TRUE(folderPanelToggleAtStart(150, true));  // collapsed but wanted: expand
  EXPECT_FALSE(folderPanelToggleAtStart(150, false));
  EXPECT_TRUE(folderPanelToggleAtStart(2400, false));  // shown but not wanted: collapse
  EXPECT_FALSE(folderPanelToggleAtStart(2400, true));
  EXPECT_FALSE(folderPanelToggleAtStart(149, true));  // narrower: left alone either way
  EXPECT_FALSE(folderPanelToggleAtStart(149, false));

  EXPECT_EQ(slideOpenWidths(500), (std::vector<int>{150, 270, 390, 500}));
  EXPECT_EQ(slideOpenWidths(150), (std::vector<int>{150, 150}));
  EXPECT_EQ(slideClosedWidths(500), (std::vector<int>{500, 380, 260, 150}));
  EXPECT_EQ(slideClosedWidths(100), (std::vector<int>{150}));
}

}  // namespace korvane::test
