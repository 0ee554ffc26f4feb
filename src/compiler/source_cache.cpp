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

const FoundFile* SourceCache::found(const std::string& name, const std::string& baseFolder) const {
  auto it = found_.find(name + '\0' + baseFolder);
  return it == found_.end() ? nullptr : &it->second;
}

void SourceCache::rememberFound(const std::string& name, const std::string& baseFolder,
                                FoundFile f) {
  found_.insert_or_assign(name + '\0' + baseFolder, std::move(f));
}

void SourceCache::forget() {
  files_.clear();
  found_.clear();
}

}  // namespace korvane
