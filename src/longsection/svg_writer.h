// A drawing as an SVG picture (UTF-8), in the drawing's own units with y up
// turned into SVG's y down; the picture beside a script lets a long section
// be seen where AutoCAD is not.
#pragma once

#include <string>

#include "longsection/script_drawing.h"

namespace korvane::longsection {

std::string svgOf(const Drawing& drawing);

// Reads a script file and writes the SVG beside it (same name, ".svg").
// Returns the SVG's path, or empty when the script cannot be read or the
// picture not written.
std::string writeSvgBesideScript(const std::string& scriptFile);

}  // namespace korvane::longsection
