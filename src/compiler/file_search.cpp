#include "compiler/file_search.h"

#include "base/fs.h"
#include "compiler/compile_internals.h"

namespace korvane {

namespace {

// The name searched for: an empty extension is "ipm".
std::string searchedName(const fs::NameParts& parts) {
  return parts.base + "." + (parts.ext.empty() ? std::string("ipm") : parts.ext);
}

FoundFile search(const RunContext& ctx, const std::string& name, const std::string& baseFolder) {
  FoundFile result;
  const fs::NameParts parts = fs::splitName(name);
  const std::string file = searchedName(parts);
  result.shownName = file;

  auto tryCandidate = [&](const std::string& candidate) {
    if (!fs::fileExists(candidate)) return false;
    result.found = true;
    result.fullName = candidate;
    result.folder = fs::splitName(candidate).folder;
    return true;
  };

  if (!parts.drive.empty()) {
    tryCandidate(fs::join(parts.folder, file));
    return result;
  }
  for (const std::string& place : searchPlaces(ctx, name, baseFolder))
    if (tryCandidate(place + fs::kSep + file)) break;
  return result;
}

}  // namespace

std::vector<std::string> searchPlaces(const RunContext& ctx, const std::string& name,
                                      const std::string& baseFolder) {
  const fs::NameParts parts = fs::splitName(name);
  if (!parts.drive.empty()) return {fs::withoutTrailingSeparator(parts.folder)};
  const std::string project = ctx.mxProjectFolder();
  // The public macro folder would come sixth; the counts stop at five, so it is
  // never searched.
  std::vector<std::string> places = {baseFolder, project, project + fs::kSep + "inputs" + fs::kSep};
  if (searchedName(parts).ends_with(".ipm")) {
    places.push_back(ctx.projectMacros());
    places.push_back(ctx.privateMacros());
    places.insert(places.end(), ctx.extraMacroFolders.begin(), ctx.extraMacroFolders.end());
  }
  return places;
}

const FoundFile& findInputFile(RunContext& ctx, const std::string& name,
                               const std::string& baseFolder) {
  SourceCache& sources = internals(ctx).sources;
  if (const FoundFile* known = sources.found(name, baseFolder)) return *known;
  return sources.rememberFound(name, baseFolder, search(ctx, name, baseFolder));
}

}  // namespace korvane
