// The sections of an input file, as the sections list shows them: a line
// whose first character is "[" and that holds a "]" opens a section named by
// the text between that "[" and the first "]".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// Files larger than this are not scanned for sections (treated as unreadable).
constexpr std::uintmax_t kSectionScanLimit = 64u << 20;

// "[name]" or "[name" as a section label: the name alone.
std::string labelName(const std::string& label);

struct SectionHead {
  std::string name;
  long line = 0;  // 1-based
};

// Section heads of a file's text, in file order (duplicates kept).
std::vector<SectionHead> sectionHeadsOf(std::string_view text);
std::optional<std::vector<SectionHead>> readSectionHeads(const std::string& path);

// Section names of a file's text, in file order (duplicates kept).
std::vector<std::string> sectionsOf(std::string_view text);
// Section names of a file; nullopt when it cannot be read.
std::optional<std::vector<std::string>> readSections(const std::string& path);

}  // namespace korvane
