#include "shell/not_found.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/similar.h"
#include "base/texts/check_texts.h"
#include "base/texts/diagnostics_texts.h"
#include "base/texts/runtime_texts.h"
#include "compiler/failure_message.h"
#include "shell/input_sections.h"

namespace korvane {
namespace {

std::string joined(const std::vector<std::string>& items, const char* before, const char* after) {
  std::string out;
  for (const std::string& item : items)
    out += (out.empty() ? "" : ", ") + std::string(before) + item + after;
  return out;
}

// The names of the files in `folders` with the extension of `file`.
std::vector<std::string> neighbours(const std::vector<std::string>& folders,
                                    const std::string& file) {
  const std::string ext = fs::splitName(file).ext;
  std::vector<std::string> names;
  for (const std::string& folder : folders) {
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(fs::native(folder), ec)) {
      const std::string name = fs::fromNative(e.path().filename());
      if (e.is_regular_file(ec) && cp::equalsIgnoreCase(fs::splitName(name).ext, ext))
        names.push_back(name);
    }
  }
  return names;
}

}  // namespace

std::string notFoundDetails(const Messages& messages, const CompileFailure& f) {
  const bool file = f.key() == texts::messages::kFileNotFound;
  if (!file && f.key() != texts::messages::kSectionNotFound) return {};
  std::string m;
  if (!f.file.empty())
    m = messages.format(texts::runtime::kWhere, f.file, std::to_string(f.line)) +
        describeTrail(messages, f.trail);
  auto line = [&](const std::string& text) { m += (m.empty() ? "" : "\n") + text; };
  auto suggest = [&](const std::string& near) {
    if (!near.empty()) line(messages.format(texts::check::kSuggestion, near));
  };
  if (file) {
    std::vector<std::string> folders;
    for (const std::string& place : f.searched) {
      const std::string folder = fs::withoutTrailingSeparator(place);
      if (!folder.empty() && std::find(folders.begin(), folders.end(), folder) == folders.end())
        folders.push_back(folder);
    }
    line(messages.format(texts::diagnostics::kSearched, joined(folders, "", "")));
    suggest(text::closestWord(f.arg1(), neighbours(folders, f.arg1())));
    return m;
  }
  const std::vector<std::string> sections =
      readSections(f.searchedFile).value_or(std::vector<std::string>{});
  std::string near = text::closestWord(labelName(f.arg2()), sections);
  suggest(near.empty() ? near : "[" + near + "]");
  line(sections.empty() ? messages.format(texts::diagnostics::kNoSections, f.arg1())
                        : messages.format(texts::diagnostics::kSectionsOf, f.arg1(),
                                          joined(sections, "[", "]")));
  return m;
}

}  // namespace korvane
