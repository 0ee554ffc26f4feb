#include "compiler/extension/workbook_path.h"

#include "base/fs.h"
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
  return {};
}

}  // namespace korvane
