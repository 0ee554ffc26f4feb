// What the panel checks before anything runs: every problem of a parameter
// set as a message from the language file's "Longsection" section.
#pragma once

#include <string>
#include <vector>

#include "base/messages.h"
#include "hosts/mx.h"
#include "longsection/parameters.h"

namespace korvane::longsection {

// The macro keeps every point it draws in a variable pair; the variable
// table holds 2000 entries, so the strings together stay below this.
constexpr int kMaxDrawnPoints = 800;

// The chainage range and sheet count a valid parameter set draws.
struct Extent {
  double start = 0, end = 0;
  int sheets = 0;
};

// The problems found, in the order of the panel's fields; empty when the set
// can be drawn. Without an engine the model and its strings are not checked
// and no extent is worked out; when the engine cannot read its models, that
// is the one problem.
std::vector<std::string> validate(const Parameters& p, hosts::MxEngine* engine,
                                  const Messages& texts, Extent* extent = nullptr);

}  // namespace korvane::longsection
