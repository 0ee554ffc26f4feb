#include "support/vectors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/char_codes.h"

namespace korvane::test {
namespace {

std::string unescape(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    const char c = text[++i];
    if (c == 't')
      out += '\t';
    else if (c == 'r')
      out += '\r';
    else if (c == 'n')
      out += '\n';
    else if (c == 'x' && i + 2 < text.size() && cp::hexDigit(text[i + 1]) >= 0 &&
             cp::hexDigit(text[i + 2]) >= 0) {
      out += static_cast<char>(cp::hexDigit(text[i + 1]) * 16 + cp::hexDigit(text[i + 2]));
      i += 2;
    } else
      out += c;  // \\ and \" and anything else stand for themselves
  }
  return out;
}

}  // namespace

std::vector<Vector> readVectors(const std::string& name, std::size_t fields) {
  const std::string path = std::string(KORVANE_SOURCE_DIR) + "/tests/vectors/" + name;
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << "cannot read " << path;
  std::vector<Vector> out;
  std::string line, group;
  for (int number = 1; std::getline(in, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      group = line;
      continue;
    }
    Vector v{name + ":" + std::to_string(number) + " " + group, {}};
    std::size_t start = 0;
    for (;;) {
      const std::size_t tab = line.find('\t', start);
      const std::string field = line.substr(start, tab - start);
      if (v.fields.size() >= fields && field.rfind("# ", 0) == 0) break;  // a comment
      v.fields.push_back(unescape(field));
      if (tab == std::string::npos) break;
      start = tab + 1;
    }
    EXPECT_EQ(v.fields.size(), fields) << v.where << ": wrong number of fields";
    if (v.fields.size() == fields) out.push_back(std::move(v));
  }
  EXPECT_FALSE(out.empty()) << path << " holds no cases";
  return out;
}

std::vector<std::string> caseNames(const std::string& folder, const std::string& extension) {
  std::vector<std::string> names;
  const std::filesystem::path at = std::filesystem::path(KORVANE_SOURCE_DIR) / "tests" / folder;
  for (const auto& e : std::filesystem::directory_iterator(at))
    if (e.path().extension() == extension) names.push_back(e.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string testName(const std::string& caseName) {
  std::string n = caseName;
  for (char& c : n)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return n;
}

std::string engineCase(const std::string& name) {
  std::ifstream in(std::string(KORVANE_SOURCE_DIR) + "/tests/engine_cases/" + name + ".txt",
                   std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void expectFileHolds(const std::string& expected, const std::string& got) {
  if (std::getenv("KORVANE_WRITE_GOLDEN")) {
    std::ofstream(expected, std::ios::binary) << got;
    return;
  }
  std::ifstream in(expected, std::ios::binary);
  ASSERT_TRUE(in) << "no " << expected << "; it would be:\n" << got;
  EXPECT_EQ(got, std::string(std::istreambuf_iterator<char>(in), {})) << expected;
}

}  // namespace korvane::test
