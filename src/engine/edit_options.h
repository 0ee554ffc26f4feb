// The EDIT minor options that cut strings back, applied to a string's points:
//   005,3=S,6=k      keep points 1 to k of string S
//   005,3=S,9=m      delete the points before point m
//   005,3=S,6=k,9=m  keep points m to k
//   006,3=S,6=a,9=b  delete the points between a and b (both kept) and break
//                    the string between them
//   031,3=S          delete string S (handled by the caller: no points involved)
// Point numbers are those of the string as the previous edits left it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/model_string.h"

namespace korvane::engine {

bool keepPoints(std::vector<ModelPoint>& points, std::optional<long> last,
                std::optional<long> first, std::string& error);
bool cutBetween(std::vector<ModelPoint>& points, long a, long b, std::string& error);

}  // namespace korvane::engine
