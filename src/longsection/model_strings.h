// Long-section strings read from the model: a long-section string holds the
// chainage in x and the level in z, point by point. Both throw hosts::MxError
// when the engine cannot read its models.
#pragma once

#include <string>
#include <vector>

#include "hosts/mx.h"

namespace korvane::longsection {

struct SectionPoint {
  double chainage = 0, level = 0;
};

// The points of a string; false when the model or the string is not there.
bool readSectionString(hosts::MxEngine& engine, const std::string& model, const std::string& label,
                       std::vector<SectionPoint>& out);

// The labels of a model's strings, in model order (empty for a model that is not there).
std::vector<std::string> stringLabels(hosts::MxEngine& engine, const std::string& model);

}  // namespace korvane::longsection
