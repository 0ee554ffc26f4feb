// The trimming step of trimsection: which runs of a section string lie
// between neighbouring crossings with boundary strings, and the EDIT records
// that remove them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::commands {

// How many crossings one string may have.
constexpr std::size_t kMaxCrossings = 200;

// A point of a section string: the label of the string crossed there, and
// the position along the section.
struct Crossing {
  std::string label;  // four characters
  float position = 0;
};

// The eight label masks of the boundary strings.
struct BoundaryMasks {
  std::array<std::string, 8> masks;

  // A mask as the command uses it: four characters, upper case, every blank
  // (padding included) a "?", so that "G" matches every label beginning with G.
  static std::string normalise(std::string_view mask);
  // True when every mask is "????": then every crossing counts.
  bool matchAll() const;
  // True when a mask other than "????" matches the label.
  bool matches(std::string_view label) const;
};

// The EDIT records for string `label` with its crossings in order along it
// (crossing k is point k of the string). Working back from the last pair, a
// pair of neighbouring crossings is a cut when both match the masks and, with
// `dist` not 0, they lie more than `dist` apart; the points beyond a cut are
// removed: from the end of the string (005), between kept runs (006, which
// breaks the string), before the first point (005 with 9=2), or the whole
// string (031) when every pair is a cut.
std::vector<std::string> trimRecords(const std::string& label,
                                     const std::vector<Crossing>& crossings,
                                     const BoundaryMasks& masks, double dist);

}  // namespace korvane::commands
