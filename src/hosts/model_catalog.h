// An engine that can list its models, for summaries of what a run changed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace korvane::hosts {

struct ModelSummary {
  std::string name;
  std::int64_t strings = 0;
  std::int64_t points = 0;
  std::int64_t revision = 0;  // grows whenever the model changes
  bool operator==(const ModelSummary&) const = default;
};

class MxModelCatalog {
 public:
  virtual ~MxModelCatalog() = default;
  virtual std::vector<ModelSummary> modelSummaries() = 0;
};

}  // namespace korvane::hosts
