// trimsection where the golden cases cannot reach: the limit on crossings, and
// sections the engine makes along a road. labelmove and trimsection reading
// their query files, a bad order and a missing query file are golden cases.
#include <gtest/gtest.h>

#include <cstdio>

#include "engine/embedded_engine.h"
#include "support/project.h"
#include "support/vectors.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

struct ExtendedCommands : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};  // runs nothing, so writes no query file

  // A report as the engine writes it for trimsection: a banner, then per
  // string its header and its points under (4F12.3,A4).
  static std::string report(const std::vector<std::string>& rows) {
    std::string r = "   GENIO output\r\n001FORMAT(4F12.3,A4)\r\n003,ORDR,4=1,1,2,3,4,5\r\n";
    for (const auto& row : rows) r += row + "\r\n";
    return r + "999\r\n";
  }
  static std::string point(double position, const char* label) {
    char line[64];
    std::snprintf(line, sizeof line, "%12.3f%12.3f%12.3f%12.3f%s", 1000 + position, 5000.0, 99.0,
                  position, label);
    return line;
  }
  static constexpr const char* kEnd = "       0.000       0.000      99.000       0.000    ";
};

TEST_F(ExtendedCommands, AStringMayCrossTwoHundredStringsNotMore) {
  std::vector<std::string> rows = {"080,S1  ,    ,3"};
  for (int i = 1; i <= 200; ++i) rows.push_back(point(i, "GR01"));
  rows.push_back(kEnd);
  project.write("tmptrimsect.txt", report(rows));
  project.write("ts.ipf", "trimsection,M\r\ninic=\"S\"\r\n");
  ASSERT_TRUE(c.compile("ts.ipf")) << c.stopMessage();
  EXPECT_EQ(c.lines.end()[-3], "031,3=S1  ");  // then "999" and the closing comment

  rows.insert(rows.end() - 1, point(201, "GR01"));
  project.write("tmptrimsect.txt", report(rows));
  EXPECT_FALSE(c.compile("ts.ipf"));
  EXPECT_EQ(c.failure(), "trimsection: the string S1 crosses more than 200 strings");
  EXPECT_FALSE(project.exists("tmptrimsect.txt"));
}

// Sections the engine makes along a road, trimmed back to the ground strings
// next to the edges: the runs between the outer ground strings go.
TEST(SectionsAlongARoad, TrimsectionCutsThemBackToTheInnerGroundStrings) {
  test::TempProject project;
  test::Compiler c{project, {}, test::EngineChoice::Embedded};
  project.write("road.ipf", test::engineCase("road_with_ground"));
  ASSERT_TRUE(c.compile("road.ipf")) << c.stopMessage();
  auto& engine = static_cast<engine::EmbeddedEngine&>(*c.embedded);
  ASSERT_TRUE(engine.makeSections("ROAD", "MAST", "SECT", {}).ok());
  project.write("trim.ipf", "trimsection,SECT\r\ninic=\"X\",mask1=\"GR\"\r\n");
  ASSERT_TRUE(c.compile("trim.ipf")) << c.stopMessage();
  for (const char* label : {"X001", "X002", "X003"}) {
    const engine::ModelString s = engine.loadString("SECT", label);
    Lines crossed;
    for (const auto& p : s.points) crossed.push_back(engine::dimText(p, 5));
    EXPECT_EQ(crossed, (Lines{"GR02", "E001", "MAST", "E002", "GR03"})) << label;
  }
  EXPECT_FALSE(project.exists("tmptrimsect.txt"));
}

}  // namespace
