// Where each compiled line came from: the input file and line that wrote it,
// and the chain of inserts, repetitions and default blocks that led there.
// The compile pass keeps a stack of the files it is reading. A node stands for
// a file read from one place (an insert line, or the line that repeats a part:
// every pass of a repetition shares its node, the pass being part of the
// place) and is made only when a line is written from it or a file is inserted
// from it; a place is a node, a line in it and the pass. The map grows with
// the places files are read from, not with the lines written or the passes.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "compiler/extension/source_place.h"

namespace korvane {

// A line of a file read from one place, in a pass of a repetition (0 outside
// one); node kNone for no place.
struct SourceOrigin {
  int node = -1;
  long line = 0;
  long pass = 0;
  bool operator==(const SourceOrigin&) const = default;
};

class SourceMap {
 public:
  static constexpr int kNone = -1;
  // Readings kept per run entry; lines written beyond them have no place.
  static constexpr std::size_t kMaxNodes = 8'000'000;

  // The compile pass entering and leaving a file; `repetition` is the pass of
  // a repeated part (0 for any other call).
  void enter(const std::string& file, long repetition);
  void leave();
  // The line of the innermost file now read.
  void atLine(long line);

  // The place the compile stands at now; no node outside a file.
  SourceOrigin here();
  // A place and the places that led to it, innermost first.
  std::vector<SourcePlace> chain(SourceOrigin origin) const;
  std::vector<SourcePlace> chainHere() { return chain(here()); }

  // Forgets every node (a new run entry); the frames are kept.
  void clearNodes();
  std::size_t nodeCount() const { return nodes_.size(); }

 private:
  struct Node {
    SourceOrigin parent;  // the line that entered the file
    std::uint32_t file;
  };
  struct Frame {
    std::uint32_t file;
    long line = 0;
    long repetition = 0;
    SourceOrigin parent;
    int node = kNone;       // made with the first place asked for
    int lastChild = kNone;  // the node of the file read last from this one
  };
  int nodeFor(Frame& f);
  std::uint32_t fileId(const std::string& file);

  std::vector<std::string> files_;
  std::unordered_map<std::string, std::uint32_t> fileIds_;
  std::uint32_t lastFile_ = 0;  // the file entered last
  std::vector<Node> nodes_;
  std::vector<Frame> frames_;
};

}  // namespace korvane
