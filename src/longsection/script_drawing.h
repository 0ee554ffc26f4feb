// What an AutoCAD script draws, read back from the script: the commands the
// long-section macro uses (line, pline, text, -layer), so that the drawing
// can be shown without AutoCAD.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace korvane::longsection {

struct DrawPoint {
  double x = 0, y = 0;
};

struct DrawPolyline {
  std::string layer;
  std::vector<DrawPoint> points;
  double width = 0;  // 0: the thinnest line
  bool closed = false;
};

struct DrawText {
  std::string layer;
  DrawPoint at;                       // start of the base line
  double height = 2.5, rotation = 0;  // rotation in degrees, counter-clockwise
  std::string text;                   // users' code page
};

struct Drawing {
  std::vector<DrawPolyline> lines;
  std::vector<DrawText> texts;
  std::map<std::string, std::string> lineTypes;  // layer -> line type
  std::vector<std::string> skipped;              // commands not drawn, in order met
  bool empty() const { return lines.empty() && texts.empty(); }
  // The smallest rectangle holding every point and text start.
  bool bounds(DrawPoint& low, DrawPoint& high) const;
};

// Reads a script (bytes as AutoCAD gets them: a blank or a line end is Enter,
// except inside the text of a text command). Commands other than those above
// are skipped up to their closing Enter and named in `skipped`.
Drawing readScript(const std::string& script);

}  // namespace korvane::longsection
