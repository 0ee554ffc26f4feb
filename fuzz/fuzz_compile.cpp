// The compile pass on a throw-away project, its MX input recorded rather
// than run. The input is the file "f.ipf"; a line "@@ NAME" starts another
// file of the project (an insert, a section file), so that seeds carry the
// files they include. Whatever the input, the run must end with its own
// message or none.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/project.h"

using namespace korvane;

namespace {

// A plain file name, so that the seed's files stay in the project.
bool plainName(std::string_view name) {
  if (name.empty() || name.size() > 32 || name[0] == '.') return false;
  for (char c : name)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.' && c != '_' && c != '-')
      return false;
  return true;
}

void writeFiles(const test::TempProject& project, std::string_view input) {
  std::string name = "f.ipf", content;
  std::size_t pos = 0;
  while (pos <= input.size()) {
    std::size_t end = input.find('\n', pos);
    if (end == std::string_view::npos) end = input.size();
    std::string_view line = input.substr(pos, end - pos);
    if (line.substr(0, 3) == "@@ ") {
      project.write(name, content);
      std::string_view next = line.substr(3);
      if (!next.empty() && next.back() == '\r') next.remove_suffix(1);
      name = plainName(next) ? std::string(next) : "x.ipm";
      content.clear();
    } else if (end < input.size()) {
      content.append(line).push_back('\n');
    } else {
      content.append(line);
    }
    pos = end + 1;
  }
  project.write(name, content);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::TempProject project;
  writeFiles(project, std::string_view(reinterpret_cast<const char*>(data), size));
  test::Compiler compiler(project);
  compiler.compile("f.ipf");  // returns whatever the input says; a crash is the finding
  return 0;
}
