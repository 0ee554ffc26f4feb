#include "shell/run_log.h"

#include "base/texts/runtime_texts.h"
#include "base/texts/window_texts.h"

namespace korvane {

void RunLog::clear() {
  std::lock_guard<std::mutex> lock(mutex_);
  lines_.clear();
}

void RunLog::add(std::string line) {
  std::lock_guard<std::mutex> lock(mutex_);
  lines_.push_back(std::move(line));
}

std::vector<std::string> RunLog::lines() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return lines_;
}

std::string RunLog::text(std::string_view lineEnd) const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::string out;
  for (const auto& l : lines_) {
    if (!out.empty()) out += lineEnd;
    out += l;
  }
  return out;
}

hosts::MxRunResult LoggingEngine::run(std::string_view verb, const std::string& fullName) {
  hosts::MxRunResult result = engine_.configuration().run(verb, fullName);
  if (!result.ok()) {
    log_.add(messages_.format(texts::runtime::kEngineStopped, result.error));
    if (!result.listing.empty())
      log_.add(messages_.format(texts::window::kListing, result.listing));
  }
  return result;
}

}  // namespace korvane
