#include "longsection/model_strings.h"

namespace korvane::longsection {

bool readSectionString(hosts::MxEngine& engine, const std::string& model, const std::string& label,
                       std::vector<SectionPoint>& out) {
  out.clear();
  auto m = engine.library().model(model);
  if (!m) return false;
  auto s = m->string(label);
  if (!s) return false;
  for (const hosts::MxPoint& p : s->points()) out.push_back({p.X, p.z});
  return true;
}

std::vector<std::string> stringLabels(hosts::MxEngine& engine, const std::string& model) {
  auto m = engine.library().model(model);
  return m ? m->stringLabels() : std::vector<std::string>{};
}

}  // namespace korvane::longsection
