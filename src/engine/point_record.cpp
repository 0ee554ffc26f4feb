#include "engine/point_record.h"

namespace korvane::engine {

void fillPointRecord(const std::string& modelName, const StringRow& row, const ModelPoint& p, int n,
                     PointRecord& out) {
  out = PointRecord{};
  for (int d = 1; d <= kMaxDimension; ++d) {
    out.num[static_cast<std::size_t>(d - 1)] = dimNumber(row.header, p, d);
    out.txt[static_cast<std::size_t>(d - 1)] = dimText(p, d);
  }
  out.num[4] = p.chainage;
  out.num[12] = dimNumber(row.header, p, 5);
  out.num[13] = n;
  out.num[14] = p.gapAfter ? 1 : 0;
  out.num[15] = row.pointCount;
  out.txt[12] = row.header.label;
  out.txt[13] = row.header.subref;
  out.txt[14] = modelName;
  out.txt[15] = std::to_string(row.header.dimension);
}

}  // namespace korvane::engine
