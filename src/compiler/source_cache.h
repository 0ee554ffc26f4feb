// Input files held in memory for a run, so that a macro file repeated 200 000
// times is found and read once. Only small files are held; a large input is
// read as a stream, so memory stays flat in the size of the input. Whatever
// may change a file on disk during the run — a flush (MX writes files), kill,
// copyfile, a line written to a print file — forgets everything held.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace korvane {

struct FoundFile {
  bool found = false;
  std::string fullName;   // the candidate that exists
  std::string folder;     // its folder: the base folder of the files it inserts
  std::string shownName;  // base name + "." + extension, for messages
};

class SourceCache {
 public:
  static constexpr std::size_t kMaxHeldFile = 1 << 20;

  struct HeldFile {
    std::string content;
    bool utf8 = false;  // valid UTF-8 holding a non-ASCII character
  };
  // A file, read now or held from before; null for a file that is too large
  // to hold or cannot be read.
  std::shared_ptr<const HeldFile> content(const std::string& fullName);

  // Where a name was found from a base folder, when that was looked up before.
  // Both answer with the entry held here, valid until the next forget().
  const FoundFile* found(const std::string& name, const std::string& baseFolder) const;
  const FoundFile& rememberFound(const std::string& name, const std::string& baseFolder,
                                 FoundFile f);

  void forget();
  // Changes with every forget(): what was looked up under one generation
  // holds while the generation lasts.
  std::uint64_t generation() const { return generation_; }

 private:
  std::uint64_t generation_ = 0;
  std::unordered_map<std::string, std::shared_ptr<const HeldFile>> files_;
  const std::string& foundKey(const std::string& name, const std::string& baseFolder) const;

  std::unordered_map<std::string, FoundFile> found_;
  mutable std::string key_;
};

}  // namespace korvane
