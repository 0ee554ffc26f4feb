// How a point of a string fills MX's point record of 16 numbers and 16 texts.
//   numbers 1-12  the point's dimensions 1 to 12 (x, y, z, ...), 0 where the
//                 dimension is a text or missing; except number 5:
//   number 5      the chainage of the point
//   number 13     dimension 5 (which number 5 gives way to)
//   number 14     the point number
//   number 15     1 when the string is broken after this point, else 0
//   number 16     the string's point count
//   texts 1-12    the texts of dimensions 1 to 12, empty where numeric
//   text 13       the string label     text 14  the sub-reference
//   text 15       the model name       text 16  the string's dimension
#pragma once

#include <string>

#include "engine/model_store.h"
#include "engine/mx_types.h"

namespace korvane::engine {

void fillPointRecord(const std::string& modelName, const StringRow& row, const ModelPoint& p, int n,
                     PointRecord& out);

}  // namespace korvane::engine
