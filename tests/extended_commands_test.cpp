// trimsection on the sections the engine makes along a road, which the golden
// cases cannot make. labelmove and trimsection reading their query files, the
// limit on crossings, a bad order and a missing query file are golden cases.
#include <gtest/gtest.h>

#include "engine/embedded_engine.h"
#include "support/project.h"
#include "support/vectors.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

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
