#include "longsection/svg_writer.h"

#include <algorithm>
#include <cstdio>

#include "base/codepage.h"
#include "base/fs.h"

namespace korvane::longsection {

namespace {

// Thinnest line drawn, in drawing units (millimetres on paper).
constexpr double kThin = 0.18;
constexpr double kBorder = 5;

std::string num(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.3f", v);
  std::string s = buf;
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
  return s == "-0" ? "0" : s;
}

std::string escaped(const std::string& utf8) {
  std::string out;
  for (char c : utf8) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else if (c == '>')
      out += "&gt;";
    else if (c == '"')
      out += "&quot;";
    else
      out += c;
  }
  return out;
}

// Dashes of the usual AutoCAD line types, in drawing units.
std::string dashes(const std::string& lineType) {
  const std::string t = cp::upper(lineType);
  if (t.rfind("DASHED", 0) == 0) return "6 3";
  if (t.rfind("HIDDEN", 0) == 0) return "3 1.5";
  if (t.rfind("CENTER", 0) == 0) return "12 3 3 3";
  if (t.rfind("DASHDOT", 0) == 0) return "6 2 1 2";
  if (t.rfind("DOT", 0) == 0) return "0.5 2";
  return {};
}

std::string colourOf(const std::string& layer) {
  const std::string l = cp::upper(layer);
  if (l == "LS_GROUND") return "#7a4b1e";
  if (l == "LS_DESIGN") return "#c00000";
  return "#000000";
}

}  // namespace

std::string svgOf(const Drawing& d) {
  DrawPoint low{0, 0}, high{1, 1};
  d.bounds(low, high);
  const double x0 = low.x - kBorder;
  const double w = high.x - low.x + 2 * kBorder, h = high.y - low.y + 2 * kBorder;
  // y up in the drawing, down in SVG: a point (x, y) goes to (x, top - y).
  const double top = high.y + kBorder;
  auto X = [&](double x) { return num(x - x0); };
  auto Y = [&](double y) { return num(top - y); };

  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + num(w) + "mm\" height=\"" + num(h) +
         "mm\" viewBox=\"0 0 " + num(w) + " " + num(h) + "\">\n";
  out += "<rect x=\"0\" y=\"0\" width=\"" + num(w) + "\" height=\"" + num(h) +
         "\" fill=\"#ffffff\"/>\n";
  for (const DrawPolyline& l : d.lines) {
    out += l.closed ? "<polygon" : "<polyline";
    out += " points=\"";
    for (std::size_t i = 0; i < l.points.size(); ++i)
      out += (i ? " " : "") + X(l.points[i].x) + "," + Y(l.points[i].y);
    out += "\" fill=\"none\" stroke=\"" + colourOf(l.layer) + "\" stroke-width=\"" +
           num(std::max(l.width, kThin)) + "\"";
    auto type = d.lineTypes.find(l.layer);
    const std::string dash = type == d.lineTypes.end() ? std::string() : dashes(type->second);
    if (!dash.empty()) out += " stroke-dasharray=\"" + dash + "\"";
    out += " data-layer=\"" + escaped(cp::toUtf8(l.layer)) + "\"/>\n";
  }
  for (const DrawText& t : d.texts) {
    // AutoCAD's height is the capitals' height; a font's size is about 1.4 of it.
    out += "<text x=\"" + X(t.at.x) + "\" y=\"" + Y(t.at.y) + "\" font-family=\"sans-serif\"" +
           " font-size=\"" + num(t.height * 1.4) + "\" fill=\"" + colourOf(t.layer) + "\"";
    if (t.rotation != 0)
      out += " transform=\"rotate(" + num(-t.rotation) + " " + X(t.at.x) + " " + Y(t.at.y) + ")\"";
    out += ">" + escaped(cp::toUtf8(t.text)) + "</text>\n";
  }
  out += "</svg>\n";
  return out;
}

std::string writeSvgBesideScript(const std::string& scriptFile) {
  auto script = fs::readFile(scriptFile);
  if (!script) return {};
  const fs::NameParts parts = fs::splitName(scriptFile);
  const std::string svg = fs::join(parts.folder, parts.base + ".svg");
  return fs::writeFileAtomic(svg, svgOf(readScript(*script))) ? svg : std::string();
}

}  // namespace korvane::longsection
