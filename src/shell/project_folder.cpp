#include "shell/project_folder.h"

#include <algorithm>
#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"

namespace korvane {
namespace {

enum class Kind { Files, Folders };

std::vector<std::string> listFolder(const std::string& folder, Kind kind) {
  std::vector<std::string> names;
  std::error_code ec;
  std::filesystem::directory_iterator it(fs::native(folder), ec), end;
  for (; !ec && it != end; it.increment(ec)) {
    std::error_code typeEc;
    const std::string name = fs::fromNative(it->path().filename());
    if (kind == Kind::Folders) {
      if (it->is_directory(typeEc)) names.push_back(name);
    } else if (it->is_regular_file(typeEc) && name.size() > 4 &&
               cp::equalsIgnoreCase(std::string_view(name).substr(name.size() - 4), ".ipf")) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string la = cp::lower(a), lb = cp::lower(b);
    return la != lb ? la < lb : a < b;
  });
  return names;
}

// A folder without its trailing separator, except at a drive's root ("C:\").
std::string folderName(const std::string& folder) {
  std::string f = fs::withoutTrailingSeparator(folder);
  if (f.size() == 2 && f[1] == ':') f += fs::kSep;
  return f;
}

}  // namespace

std::vector<std::string> inputFiles(const std::string& folder) {
  return listFolder(folder, Kind::Files);
}

std::vector<std::string> subfolders(const std::string& folder) {
  return listFolder(folder, Kind::Folders);
}

std::string homeFolder(const std::string& projectFolder) {
  const std::string inputs = projectFolder + "inputs";
  if (fs::folderExists(inputs)) return inputs;
  return fs::withoutTrailingSeparator(projectFolder);
}

bool insideProject(const std::string& folder, const std::string& projectFolder) {
  return cp::startsWithIgnoreCase(fs::withTrailingSeparator(folder), projectFolder);
}

std::string nearestExistingFolder(const std::string& folder) {
  std::string f = folderName(folder);
  while (!f.empty()) {
    if (fs::folderExists(f)) return f;
    const std::size_t sep = f.find_last_of("\\/");
    if (sep == std::string::npos) return {};
    std::string parent = f.substr(0, sep);
    if (parent.empty() || parent == f || (parent.size() == 2 && parent[1] == ':'))
      parent += fs::kSep;  // the root: "/" or "C:\"
    if (parent == f) return {};
    f = parent;
  }
  return {};
}

std::vector<std::string> folderChain(const std::string& folder) {
  std::vector<std::string> chain;
  std::string f = folderName(folder);
  while (!f.empty()) {
    chain.push_back(f);
    const std::size_t sep = f.find_last_of("\\/");
    if (sep == std::string::npos) break;
    std::string parent = f.substr(0, sep);
    if (parent.empty() || (parent.size() == 2 && parent[1] == ':')) parent += fs::kSep;
    if (parent == f) break;
    f = parent;
  }
  std::reverse(chain.begin(), chain.end());
  return chain;
}

}  // namespace korvane
