// Cross sections along a master string: where they lie, what they cross, and
// how they load into another model.
#include "support/engine.h"
#include "support/vectors.h"

using namespace korvane::engine;
using korvane::testing::EngineTest;

namespace {

// A road along x: the master MAST at y 100, edges E001 and E002 4 to its left
// and right rising from level 99 to 101 (E001 has a point halfway, where
// the section at chainage 10 meets it), ground GR01 and GR02 10 out.
const std::string kRoad = korvane::test::engineCase("road_along_x");

struct Crossed {
  std::string label;
  double position, x, y, z;
};

std::vector<Crossed> crossedBy(const ModelString& s) {
  std::vector<Crossed> out;
  for (const auto& p : s.points)
    out.push_back({dimText(p, 5), dimNumber(s.header, p, 4), dimNumber(s.header, p, 1),
                   dimNumber(s.header, p, 2), dimNumber(s.header, p, 3)});
  return out;
}

TEST_F(EngineTest, SectionsSquareToTheMasterCrossTheStringsLeftToRight) {
  ASSERT_EQ(run(kRoad), "");
  SectionRequest r;  // every 10, 15 to each side, labels X001...
  const auto result = engine_->makeSections("ROAD", "mast", "SECT", r);
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_EQ(labels("SECT"), (std::vector<std::string>{"X001", "X002", "X003"}));

  const ModelString s = load("SECT", "X002");  // at chainage 10, x = 110
  EXPECT_EQ(s.header.dimension, 5);
  const std::vector<Crossed> c = crossedBy(s);
  ASSERT_EQ(c.size(), 5u);
  // From the left end (y 115) to the right (y 85): ground, edge, master, edge, ground.
  const char* labels[] = {"GR01", "E001", "MAST", "E002", "GR02"};
  const double positions[] = {5, 11, 15, 19, 25};
  const double levels[] = {98, 100, 100, 100, 97};  // the edges halfway up
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(c[i].label, labels[i]);
    EXPECT_NEAR(c[i].position, positions[i], 1e-9);
    EXPECT_NEAR(c[i].x, 110, 1e-9);
    EXPECT_NEAR(c[i].y, 115 - positions[i], 1e-9);
    EXPECT_NEAR(c[i].z, levels[i], 1e-9);
  }
  // At the master's end the sections still meet each string's end point once.
  EXPECT_EQ(crossedBy(load("SECT", "X003")).size(), 5u);
}

TEST_F(EngineTest, SectionsOfASlantedMasterLieAlongItsNormal) {
  // A master of 30-40-50 and a string 5 to its left (offset by -4, 3).
  ASSERT_EQ(run("geni,ROAD\r\n001format(3f12.3)\r\n"
                "080,MAST,,7=3\r\n     100.000     100.000       0.000\r\n     130.000     140.000 "
                "      0.000\r\n       0.000       0.000       0.000\r\n"
                "080,LEFT,,7=3\r\n      96.000     103.000       0.000\r\n     126.000     143.000 "
                "      0.000\r\n       0.000       0.000       0.000\r\n"
                "999\r\n"),
            "");
  SectionRequest r;
  r.interval = 25;
  r.halfWidth = 10;
  r.prefix = "CS";
  ASSERT_TRUE(engine_->makeSections("ROAD", "MAST", "SECT", r).ok());
  EXPECT_EQ(labels("SECT"), (std::vector<std::string>{"CS01", "CS02", "CS03"}));
  const std::vector<Crossed> c = crossedBy(load("SECT", "CS02"));  // at (115, 120)
  ASSERT_EQ(c.size(), 2u);
  EXPECT_EQ(c[0].label, "LEFT");
  EXPECT_NEAR(c[0].position, 5, 1e-9);
  EXPECT_NEAR(c[0].x, 111, 1e-9);
  EXPECT_NEAR(c[0].y, 123, 1e-9);
  EXPECT_EQ(c[1].label, "MAST");
  EXPECT_NEAR(c[1].position, 10, 1e-9);
}

TEST_F(EngineTest, SectionRequestsThatCannotBeMadeAreRefused) {
  ASSERT_EQ(run(kRoad), "");
  SectionRequest r;
  EXPECT_NE(engine_->makeSections("ROAD", "MAST", "road", r).error.find("another model"),
            std::string::npos);
  EXPECT_NE(engine_->makeSections("ROAD", "NONE", "SECT", r).error.find("no string NONE"),
            std::string::npos);
  r.interval = 0;
  EXPECT_FALSE(engine_->makeSections("ROAD", "MAST", "SECT", r).ok());
  r.interval = 0.001;  // 20001 sections: more than the labels X001 to X999
  EXPECT_NE(engine_->makeSections("ROAD", "MAST", "SECT", r).error.find("999"), std::string::npos);
  r = SectionRequest{};
  r.prefix = "ABCD";
  EXPECT_FALSE(engine_->makeSections("ROAD", "MAST", "SECT", r).ok());
  EXPECT_FALSE(engine_->modelExists("SECT"));
}

}  // namespace
