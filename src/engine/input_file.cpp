#include "engine/input_file.h"

#include <fstream>

#include "base/codepage.h"
#include "engine/engine_error.h"
#include "engine/engine_limits.h"

namespace korvane::engine {

void splitLines(std::string_view text, std::vector<std::string>& lines) {
  lines.clear();
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t nl = text.find('\n', start);
    std::size_t end = nl == std::string_view::npos ? text.size() : nl;
    std::string_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.emplace_back(line);
    if (nl == std::string_view::npos) break;
    start = nl + 1;
  }
}

std::vector<std::string> readInputLines(const std::string& path) {
  // Read in one piece: a stream copy would stop silently when memory runs out.
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  std::streamoff size = in ? static_cast<std::streamoff>(in.tellg()) : -1;
  if (size < 0) throw EngineError("cannot read the input file " + path);
  if (static_cast<std::uintmax_t>(size) > kMaxInputBytes)
    throw EngineError("the input file " + path + " has " + std::to_string(size) +
                      " bytes; the engine reads files of at most " +
                      std::to_string(kMaxInputBytes));
  std::string text(static_cast<std::size_t>(size), '\0');
  in.seekg(0);
  in.read(text.data(), size);
  if (in.gcount() != size) throw EngineError("cannot read the input file " + path);
  if (text.rfind("\xEF\xBB\xBF", 0) == 0) text = cp::fromUtf8(std::string_view(text).substr(3));
  std::vector<std::string> lines;
  splitLines(text, lines);
  return lines;
}

std::string encodingFault(std::string_view line, int lineNo) {
  if (lineNo == 1 && (line.rfind("\xFF\xFE", 0) == 0 || line.rfind("\xFE\xFF", 0) == 0))
    return "the file is UTF-16 text (it begins with a UTF-16 byte-order mark); the engine reads "
           "Windows-1250 text";
  std::size_t nul = line.find('\0');
  if (nul != std::string_view::npos)
    return "NUL byte in column " + std::to_string(nul + 1) +
           ": the file is not Windows-1250 text (UTF-16 or binary?)";
  return {};
}

}  // namespace korvane::engine
