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

int SourceMap::nodeFor(Frame& f) {
  // The next pass of a repeated part is read from the same place as the last:
  // it takes that node again.
  Frame* from = frames_.size() > 1 ? &frames_[frames_.size() - 2] : nullptr;
  if (from && from->lastChild != kNone) {
    const Node& last = nodes_[from->lastChild];
    if (last.file == f.file && last.parent == f.parent) return from->lastChild;
  }
  if (nodes_.size() >= kMaxNodes) return kNone;
  nodes_.push_back(Node{f.parent, f.file});
  const int node = static_cast<int>(nodes_.size()) - 1;
  if (from) from->lastChild = node;
  return node;
}

SourceOrigin SourceMap::here() {
  if (frames_.empty()) return {};
  Frame& f = frames_.back();
  if (f.node == kNone) f.node = nodeFor(f);
  if (f.node == kNone) return {};
  return {f.node, f.line, f.repetition};
}

std::vector<SourcePlace> SourceMap::chain(SourceOrigin origin) const {
  std::vector<SourcePlace> out;
  while (origin.node >= 0 && origin.node < static_cast<int>(nodes_.size())) {
    const Node& n = nodes_[origin.node];
    out.push_back(SourcePlace{files_[n.file], origin.line, origin.pass});
    origin = n.parent;
  }
  return out;
}

void SourceMap::clearNodes() {
  nodes_.clear();
  for (Frame& f : frames_) {
    f.node = kNone;
    f.lastChild = kNone;
    f.parent = {};
  }
}

}  // namespace korvane
