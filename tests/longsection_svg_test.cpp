// A script read back as a drawing and written as SVG.
#include <gtest/gtest.h>

#include <cmath>

#include "base/codepage.h"
#include "longsection/script_drawing.h"
#include "longsection/svg_writer.h"

namespace korvane::test {
namespace {

using namespace longsection;

// A 3-4-5 triangle as a closed polyline, a line given on one script line
// with blanks as Enter, a layer with its line type and a rotated text.
const std::string kScript = cp::fromUtf8(
    "_-layer\r\n_m\r\nLS_DESIGN\r\n_lt\r\nDASHED\r\n\r\n\r\n"
    "_pline\r\n0.000,0.000\r\n_w\r\n0.5\r\n0.5\r\n3.000,0.000\r\n3.000,4.000\r\n_c\r\n"
    "_-layer _m LS_TEXT\r\n\r\n"
    "_line 0,0 3,4\r\n\r\n"
    "_zoom\r\n_e\r\n\r\n"
    "_text\r\n1.5,2\r\n2.5\r\n90\r\nÖ.h.: 100.00 mBf\r\n\r\n");

TEST(LongsectionScriptDrawing, TheMacrosCommandsAreReadBack) {
  const Drawing d = readScript(kScript);
  ASSERT_EQ(d.lines.size(), 2u);
  const DrawPolyline& tri = d.lines[0];
  EXPECT_EQ(tri.layer, "LS_DESIGN");
  EXPECT_TRUE(tri.closed);
  EXPECT_EQ(tri.width, 0.5);
  ASSERT_EQ(tri.points.size(), 3u);
  // The hypotenuse from the last point back to the first is 5 long.
  const DrawPoint a = tri.points.front(), c = tri.points.back();
  EXPECT_DOUBLE_EQ(std::hypot(c.x - a.x, c.y - a.y), 5);
  EXPECT_EQ(d.lines[1].layer, "LS_TEXT");
  EXPECT_FALSE(d.lines[1].closed);
  EXPECT_EQ(d.lineTypes.at("LS_DESIGN"), "DASHED");
  EXPECT_EQ(d.skipped, std::vector<std::string>{"_zoom"});
  ASSERT_EQ(d.texts.size(), 1u);
  EXPECT_EQ(d.texts[0].rotation, 90);
  EXPECT_EQ(d.texts[0].text, cp::fromUtf8("Ö.h.: 100.00 mBf"));
}

TEST(LongsectionSvg, YIsTurnedDownAndTextsAreUtf8) {
  const std::string svg = svgOf(readScript(kScript));
  // Bounds 0..3 by 0..4 and a border of 5: the picture is 13 by 14, and the
  // drawing's origin lies 5 in from the left and 5 up from the bottom.
  EXPECT_NE(svg.find("viewBox=\"0 0 13 14\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("<polygon points=\"5,9 8,9 8,5\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("stroke-dasharray"), std::string::npos);
  EXPECT_NE(svg.find("<polyline points=\"5,9 8,5\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("rotate(-90 6.5 7)\">Ö.h.: 100.00 mBf</text>"), std::string::npos) << svg;
}

}  // namespace
}  // namespace korvane::test
