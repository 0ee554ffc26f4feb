// Cross sections along a master string: at every station, a straight section
// square to the master in plan, reaching `halfWidth` to each side, becomes a
// section string with one point wherever it crosses a string of the model.
#pragma once

#include <string>
#include <vector>

#include "engine/model_string.h"

namespace korvane::engine {

// How many sections one request may make (labels have four characters).
constexpr std::size_t kMaxSections = 999;

struct SectionRequest {
  double interval = 10;      // between stations, in chainage
  double halfWidth = 15;     // from the master to each end of a section
  std::string prefix = "X";  // labels: the prefix and a running number, "X001"
};

// The section strings, in chainage order. Stations lie at the master's first
// chainage and every `interval` after it up to its last (none in a gap after
// a broken point). A section runs from left to right looking along the
// master; each point holds x, y and the level of the crossed string there,
// the position along the section (0 at its left end, halfWidth at the
// master) and the crossed string's label. Sections that cross nothing are
// left out. EngineError for a bad request or master string.
std::vector<ModelString> crossSections(const ModelString& master,
                                       const std::vector<ModelString>& strings,
                                       const SectionRequest& request);

}  // namespace korvane::engine
