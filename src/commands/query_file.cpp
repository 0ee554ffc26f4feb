#include "commands/query_file.h"

#include <optional>

#include "base/fs.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/call_context.h"
#include "compiler/extension/compile_failure.h"

namespace korvane::commands {

QueryFile::~QueryFile() { remove(); }

void QueryFile::remove() {
  if (fs::fileExists(path_)) fs::removeFile(path_);
}

std::vector<std::string> QueryFile::run(CallContext& ctx) const {
  ctx.writeLine("019,4=-1");
  ctx.writeLine("081");
  ctx.writeLine("999");
  ctx.writeLine("over,,genio");
  ctx.flushAndRun();
  return lines();
}

std::vector<std::string> QueryFile::lines() const {
  const std::optional<std::string> data = fs::readFile(path_);
  if (!data) throw RuntimeFailure(texts::runtime::kCannotRead, path_);
  std::vector<std::string> lines;
  std::size_t pos = 0;
  while (pos < data->size()) {
    std::size_t end = data->find('\n', pos);
    if (end == std::string::npos) end = data->size();
    std::string line = data->substr(pos, end - pos);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    pos = end + 1;
  }
  return lines;
}

}  // namespace korvane::commands
