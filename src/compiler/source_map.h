// Where each compiled line came from: the input file and line that wrote it,
// and the chain of inserts, repetitions and default blocks that led there.
// The compile pass keeps a stack of the files it is reading; a place is made
// into a node only when a line is written from it (or a file is inserted from
// it), so the map grows with the output and not with the input read.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

// One step of a chain: a line of a file, and the repetition it was read in
// (0 outside a repetition).
struct SourcePlace {
  std::string file;
  long line = 0;
  long repetition = 0;
};

class SourceMap {
 public:
  static constexpr int kNone = -1;
  // Places kept per run entry; lines written beyond them have no place.
  static constexpr std::size_t kMaxNodes = 8'000'000;

  // The compile pass entering and leaving a file; `repetition` is the pass of
  // a repeated part (0 for any other call).
  void enter(const std::string& file, long repetition);
  void leave();
  // The line of the innermost file now read.
  void atLine(long line);

  // The node for the place the compile stands at now; kNone outside a file.
  int here();
  // The place of a node and the places that led to it, innermost first.
  std::vector<SourcePlace> chain(int node) const;
  // The chain of the place the compile stands at now.
  std::vector<SourcePlace> chainHere() { return chain(here()); }

  // Forgets every node (a new run entry); the frames are kept.
  void clearNodes();
  std::size_t nodeCount() const { return nodes_.size(); }

 private:
  struct Node {
    int parent;
    std::uint32_t file;
    long line;
    long repetition;
  };
  struct Frame {
    std::uint32_t file;
    long line = 0;
    long repetition = 0;
    int parent = kNone;  // the node of the line that entered this file
    int node = kNone;    // the node of `line`, once made
  };
  std::uint32_t fileId(const std::string& file);

  std::vector<std::string> files_;
  std::unordered_map<std::string, std::uint32_t> fileIds_;
  std::vector<Node> nodes_;
  std::vector<Frame> frames_;
};

}  // namespace korvane
