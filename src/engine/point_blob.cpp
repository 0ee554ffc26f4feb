#include "engine/point_blob.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "engine/engine_error.h"

namespace korvane::engine {
namespace {

constexpr std::size_t kValueBytes = 8;
constexpr std::size_t kSlotBytes = 1 + kValueBytes;
constexpr std::size_t kHeadBytes = 1 + 8;  // flags, chainage
enum Tag : unsigned char { kNumber = 0, kText = 1, kMissing = 2 };

void putDouble(char* out, double v) {
  auto bits = std::bit_cast<std::uint64_t>(v);
  for (std::size_t i = 0; i < 8; ++i) out[i] = static_cast<char>((bits >> (8 * i)) & 0xFF);
}

double getDouble(const char* in) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < 8; ++i)
    bits |= static_cast<std::uint64_t>(static_cast<unsigned char>(in[i])) << (8 * i);
  return std::bit_cast<double>(bits);
}

}  // namespace

std::size_t pointRecordSize(int dimension) {
  return kHeadBytes + kSlotBytes * static_cast<std::size_t>(dimension);
}

std::string encodePoints(const ModelString& s) {
  const int dimension = s.header.dimension;
  const std::size_t size = pointRecordSize(dimension);
  std::vector<double> ch = chainages(s);
  std::string blob(size * s.points.size(), '\0');
  char* out = blob.data();
  for (std::size_t i = 0; i < s.points.size(); ++i, out += size) {
    const ModelPoint& p = s.points[i];
    out[0] = p.gapAfter ? 1 : 0;
    putDouble(out + 1, ch[i]);
    char* slot = out + kHeadBytes;
    for (int d = 0; d < dimension; ++d, slot += kSlotBytes) {
      if (d >= static_cast<int>(p.dims.size())) {
        slot[0] = kMissing;
        continue;
      }
      const DimValue& v = p.dims[static_cast<std::size_t>(d)];
      if (!v.isText) {
        slot[0] = kNumber;
        putDouble(slot + 1, v.num);
        continue;
      }
      if (v.txt.size() > kValueBytes) throw std::length_error("point text longer than 8 bytes");
      slot[0] = kText;
      std::memcpy(slot + 1, v.txt.data(), v.txt.size());
    }
  }
  return blob;
}

ModelPoint decodePoint(std::string_view record, int dimension) {
  ModelPoint p;
  p.gapAfter = (record[0] & 1) != 0;
  p.chainage = getDouble(record.data() + 1);
  p.dims.reserve(static_cast<std::size_t>(dimension));
  const char* slot = record.data() + kHeadBytes;
  for (int d = 0; d < dimension; ++d, slot += kSlotBytes) {
    if (slot[0] == kMissing) break;
    if (slot[0] == kNumber) {
      p.dims.push_back(DimValue::number(getDouble(slot + 1)));
      continue;
    }
    if (slot[0] != kText) throw EngineError("the model store is damaged: unknown point value");
    std::size_t n = 0;
    while (n < kValueBytes && slot[1 + n] != '\0') ++n;
    p.dims.push_back(DimValue::text(std::string(slot + 1, n)));
  }
  return p;
}

std::vector<ModelPoint> decodePoints(std::string_view blob, int dimension, std::size_t count) {
  const std::size_t size = pointRecordSize(dimension);
  if (blob.size() != size * count)
    throw EngineError("the model store is damaged: a string of " + std::to_string(count) +
                      " points has " + std::to_string(blob.size()) + " bytes of point data");
  std::vector<ModelPoint> points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    points.push_back(decodePoint(blob.substr(i * size, size), dimension));
  return points;
}

}  // namespace korvane::engine
