#include "compiler/source_cache.h"

#include "base/codepage.h"
#include "base/fs.h"

namespace korvane {

std::shared_ptr<const SourceCache::HeldFile> SourceCache::content(const std::string& fullName) {
  if (auto it = files_.find(fullName); it != files_.end()) return it->second;
  auto size = fs::fileSize(fullName);
  if (!size || *size > kMaxHeldFile) return nullptr;
  auto data = fs::readFile(fullName);
  if (!data) return nullptr;
  const bool utf8 = cp::looksLikeUtf8(*data);
  auto held = std::make_shared<const HeldFile>(HeldFile{std::move(*data), utf8});
  files_.emplace(fullName, held);
  return held;
}

const std::string& SourceCache::foundKey(const std::string& name,
                                         const std::string& baseFolder) const {
  key_.assign(name);  // the buffer's storage is reused: a repeated insert allocates nothing
  key_ += '\0';
  key_ += baseFolder;
  return key_;
}

const FoundFile* SourceCache::found(const std::string& name, const std::string& baseFolder) const {
  auto it = found_.find(foundKey(name, baseFolder));
  return it == found_.end() ? nullptr : &it->second;
}

const FoundFile& SourceCache::rememberFound(const std::string& name, const std::string& baseFolder,
                                            FoundFile f) {
  return found_.insert_or_assign(foundKey(name, baseFolder), std::move(f)).first->second;
}

void SourceCache::forget() {
  ++generation_;
  files_.clear();
  found_.clear();
}

}  // namespace korvane
