#include "compiler/source_map.h"

namespace korvane {

std::uint32_t SourceMap::fileId(const std::string& file) {
  // A repeated part enters the same file pass after pass.
  if (lastFile_ < files_.size() && files_[lastFile_] == file) return lastFile_;
  auto [it, added] = fileIds_.try_emplace(file, static_cast<std::uint32_t>(files_.size()));
  if (added) files_.push_back(file);
  return lastFile_ = it->second;
}

void SourceMap::enter(const std::string& file, long repetition) {
  Frame f;
  f.parent = here();
  f.file = fileId(file);
  f.repetition = repetition;
  frames_.push_back(f);
}

void SourceMap::leave() {
  if (!frames_.empty()) frames_.pop_back();
}

void SourceMap::atLine(long line) {
  if (!frames_.empty()) frames_.back().line = line;
}

SourceOrigin SourceMap::here() {
  if (frames_.empty()) return {};
  Frame& f = frames_.back();
  if (f.node == kNone) {
    if (nodes_.size() >= kMaxNodes) return {};
    nodes_.push_back(Node{f.parent, f.file, f.repetition});
    f.node = static_cast<int>(nodes_.size()) - 1;
  }
  return {f.node, f.line};
}

std::vector<SourcePlace> SourceMap::chain(SourceOrigin origin) const {
  std::vector<SourcePlace> out;
  while (origin.node >= 0 && origin.node < static_cast<int>(nodes_.size())) {
    const Node& n = nodes_[origin.node];
    out.push_back(SourcePlace{files_[n.file], origin.line, n.repetition});
    origin = n.parent;
  }
  return out;
}

void SourceMap::clearNodes() {
  nodes_.clear();
  for (Frame& f : frames_) {
    f.node = kNone;
    f.parent = {};
  }
}

}  // namespace korvane
