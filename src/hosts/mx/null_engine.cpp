#include "hosts/mx/null_engine.h"

#include <utility>

namespace korvane::hosts {

NullEngine::NullEngine(std::string projectFolder, std::map<std::string, std::string> settings)
    : projectFolder_(std::move(projectFolder)), settings_(std::move(settings)) {}

std::string NullEngine::setting(std::string_view name) {
  auto it = settings_.find(std::string(name));
  return it == settings_.end() ? std::string() : it->second;
}

MxRunResult NullEngine::run(std::string_view, const std::string&) {
  ++runs_;
  return {};
}

std::int32_t NullEngine::stringInfo(std::string_view, std::string_view, std::int32_t& count) {
  count = 0;
  return MxStatus::kNoModel;
}

std::int32_t NullEngine::point(std::string_view, std::string_view, std::int32_t, PointRecord&) {
  return MxStatus::kNoModel;
}

std::int32_t NullEngine::record(std::int32_t, PointRecord&) { return MxStatus::kNoModel; }

std::int32_t NullEngine::nextLabel(std::string_view, std::string_view, std::string& label) {
  label.clear();
  return MxStatus::kNoModel;
}

std::int32_t NullEngine::labelCount(std::string_view, std::string_view, std::int32_t& count) {
  count = 0;
  return MxStatus::kNoModel;
}

std::int32_t NullEngine::parameter(std::string_view, int, std::string& value) {
  value.clear();
  return MxStatus::kNoParameter;
}

}  // namespace korvane::hosts
