// How the store keeps a string's points: one BLOB a string, made of one
// fixed-size record a point, so that point n is read without the others.
//   record  = flags (1 byte: 1 when the string is broken after the point)
//           + chainage (8 bytes)
//           + per dimension of the string: a tag (1 byte) and 8 bytes:
//               tag 0  a number: an IEEE 754 double, least significant byte first
//               tag 1  a text of up to 8 bytes, padded with NUL bytes
//               tag 2  no value (the point has fewer dimensions)
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/model_string.h"

namespace korvane::engine {

std::size_t pointRecordSize(int dimension);

// The BLOB of a string's points, with their chainages (see chainages()).
std::string encodePoints(const ModelString& s);
// One record; the bytes must be pointRecordSize(dimension) long.
ModelPoint decodePoint(std::string_view record, int dimension);
// Every record of a BLOB. An EngineError when its size is not `count` records.
std::vector<ModelPoint> decodePoints(std::string_view blob, int dimension, std::size_t count);

}  // namespace korvane::engine
