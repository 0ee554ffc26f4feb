#include "compiler/extension/workbook_path.h"

#include <filesystem>

#include "base/fs.h"
#include "base/similar.h"
#include "base/texts/check_texts.h"
#include "base/texts/outputs_texts.h"

namespace korvane {

std::string resolveWorkbook(CallContext& ctx, const std::string& name) {
  const fs::NameParts parts = fs::splitName(name);
  const std::string file = parts.base + "." + (parts.ext.empty() ? "xls" : parts.ext);
  const std::string path = !parts.folder.empty()
                               ? fs::join(parts.folder, file)
                               : fs::join(fs::join(ctx.mxProjectFolder(), "excel"), file);
  if (fs::fileExists(path)) return path;
  ctx.writeLog(ctx.text(texts::outputs::kWorkbookNotFound) + ": " + path);
  ctx.warn(texts::check::kNoWorkbook, path, {}, name, [&] {
    // The closest of the files beside it.
    std::vector<std::string> names;
    std::error_code ec;
    const fs::NameParts at = fs::splitName(path);
    for (const auto& e : std::filesystem::directory_iterator(fs::native(at.folder), ec))
      if (e.is_regular_file(ec)) names.push_back(fs::fromNative(e.path().filename()));
    return text::closestWord(file, names);
  });
  return {};
}

}  // namespace korvane
