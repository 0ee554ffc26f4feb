#include "compiler/file_search.h"

#include <array>

#include "base/fs.h"
#include "compiler/compile_internals.h"

namespace korvane {

namespace {

FoundFile search(const RunContext& ctx, const std::string& name, const std::string& baseFolder) {
  FoundFile result;
  const fs::NameParts parts = fs::splitName(name);
  std::string ext = parts.ext;
  int places = 3;
  if (ext.empty() || ext == "ipm") {
    ext = "ipm";
    places = 5;
  }
  const std::string file = parts.base + "." + ext;
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
  const std::string project = ctx.mxProjectFolder();
  // The public macro folder would come sixth; the counts stop at five, so it is
  // never searched.
  const std::array<std::string, 5> place = {
      baseFolder,          project, project + fs::kSep + "inputs" + fs::kSep, ctx.projectMacros(),
      ctx.privateMacros(),
  };
  for (int i = 0; i < places; ++i)
    if (tryCandidate(place[i] + fs::kSep + file)) break;
  return result;
}

}  // namespace

const FoundFile& findInputFile(RunContext& ctx, const std::string& name,
                               const std::string& baseFolder) {
  SourceCache& sources = internals(ctx).sources;
  if (const FoundFile* known = sources.found(name, baseFolder)) return *known;
  return sources.rememberFound(name, baseFolder, search(ctx, name, baseFolder));
}

}  // namespace korvane
