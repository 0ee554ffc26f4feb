#include "base/profile.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "base/codepage.h"
#include "base/fs.h"

namespace korvane {
namespace {

bool isIniBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r' || c == '\x1A';
}

std::string_view trimIni(std::string_view s) {
  while (!s.empty() && isIniBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isIniBlank(s.back())) s.remove_suffix(1);
  return s;
}

// One physical line of an ini file: its text and the line break after it.
struct RawLine {
  std::string text;
  std::string eol;
  std::optional<std::string> unicode;  // the line as UTF-8, for a Unicode file we rewrite
};

enum class Encoding { Ansi, Utf8, Utf16le };

Encoding encodingOf(const std::string& data) {
  if (data.size() >= 3 && data.compare(0, 3, "\xEF\xBB\xBF") == 0) return Encoding::Utf8;
  if (data.size() >= 2 && data[0] == '\xFF' && data[1] == '\xFE') return Encoding::Utf16le;
  return Encoding::Ansi;
}

// The text of a Unicode file as UTF-8, without its byte-order mark.
std::string unicodeText(const std::string& data, Encoding encoding) {
  if (encoding == Encoding::Utf8) return data.substr(3);
  return cp::utf16leToUtf8(std::string_view(data).substr(2));
}

// Text of the file in the users' code page: a UTF-8 byte-order mark is honoured
// (converted), a UTF-16LE one decoded.
std::string decodeIni(std::string data) {
  if (data.size() >= 3 && data.compare(0, 3, "\xEF\xBB\xBF") == 0)
    return cp::fromUtf8(std::string_view(data).substr(3));
  if (data.size() >= 2 && data[0] == '\xFF' && data[1] == '\xFE')
    return cp::fromUtf16le(std::string_view(data).substr(2));
  return data;
}

std::vector<RawLine> splitLines(const std::string& data) {
  std::vector<RawLine> lines;
  std::size_t i = 0;
  while (i < data.size()) {
    std::size_t j = data.find_first_of("\r\n", i);
    if (j == std::string::npos) {
      lines.push_back({data.substr(i), "", std::nullopt});
      break;
    }
    std::size_t eolLen = (data[j] == '\r' && j + 1 < data.size() && data[j + 1] == '\n') ? 2 : 1;
    lines.push_back({data.substr(i, j - i), data.substr(j, eolLen), std::nullopt});
    i = j + eolLen;
  }
  return lines;
}

// A section header names the text between "[" and the last "]".
bool sectionName(std::string_view line, std::string_view& name) {
  std::string_view t = trimIni(line);
  if (t.empty() || t.front() != '[') return false;
  std::size_t close = t.rfind(']');
  if (close == std::string_view::npos) return false;
  name = trimIni(t.substr(1, close - 1));
  return true;
}

bool keyOf(std::string_view line, std::string_view& key, std::string_view& value) {
  std::string_view t = trimIni(line);
  std::size_t eq = t.find('=');
  if (eq == std::string_view::npos) return false;
  key = trimIni(t.substr(0, eq));
  value = trimIni(t.substr(eq + 1));
  return true;
}

// Parsed files are kept while their size and time stamp stay the same, so that
// the many message lookups of a run read each language file once.
// The lines are shared with the readers, never copied: a language file is read
// by the hundred lookups at start-up alone.
using Lines = std::shared_ptr<const std::vector<RawLine>>;
struct CachedFile {
  std::int64_t stamp = 0;
  std::uintmax_t size = 0;
  Lines lines;
};
std::mutex g_cacheMutex;
std::map<std::string, CachedFile> g_cache;

Lines loadLines(const std::string& file) {
  std::error_code ec;
  auto path = fs::native(file);
  auto stamp = fs::modifiedTime(path);
  if (!stamp) return nullptr;
  auto size = std::filesystem::file_size(path, ec);
  if (ec) return nullptr;
  std::lock_guard<std::mutex> lock(g_cacheMutex);
  auto it = g_cache.find(file);
  if (it != g_cache.end() && it->second.stamp == *stamp && it->second.size == size)
    return it->second.lines;
  auto data = fs::readFile(file);
  if (!data) return nullptr;
  auto lines =
      std::make_shared<const std::vector<RawLine>>(splitLines(decodeIni(std::move(*data))));
  g_cache[file] = CachedFile{*stamp, size, lines};
  return lines;
}

void forget(const std::string& file) {
  std::lock_guard<std::mutex> lock(g_cacheMutex);
  g_cache.erase(file);
}

}  // namespace

std::string ReadProfileValue(std::string_view section, std::string_view key,
                             const std::string& file) {
  std::string result;
  section = trimIni(section);
  key = trimIni(key);
  const Lines lines = section.empty() || key.empty() ? nullptr : loadLines(file);
  if (lines) {
    bool inSection = false, seenSection = false;
    for (const auto& line : *lines) {
      std::string_view name, k, v;
      if (sectionName(line.text, name)) {
        if (seenSection && inSection) break;  // only the first section of that name counts
        inSection = cp::equalsIgnoreCase(name, section);
        seenSection = seenSection || inSection;
        continue;
      }
      if (inSection && keyOf(line.text, k, v) && cp::equalsIgnoreCase(k, key)) {
        if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
          v = v.substr(1, v.size() - 2);
        result = std::string(v);
        break;
      }
    }
  }
  return result;
}

std::string ReadProfileString(std::string_view section, std::string_view key,
                              const std::string& file, std::int32_t* status) {
  std::string result = ReadProfileValue(section, key, file);
  if (result.size() > kProfileValueMax) result.resize(kProfileValueMax);
  if (status) *status = static_cast<std::int32_t>(result.size());
  return result;
}

namespace {

// A file's lines as read for writing, in the encoding they will be written in.
struct EditedFile {
  Encoding encoding = Encoding::Ansi;
  std::vector<RawLine> lines;
};

bool loadForEdit(const std::string& file, EditedFile& f) {
  if (!fs::fileExists(file)) return true;
  auto data = fs::readFile(file);
  if (!data) return false;
  // A file in UTF-8 or UTF-16LE (Windows' own Unicode profile) is written back in
  // its encoding, and the lines we do not change keep every character they had,
  // also those the users' code page has no place for.
  f.encoding = encodingOf(*data);
  std::vector<RawLine> unicodeLines;
  if (f.encoding != Encoding::Ansi) unicodeLines = splitLines(unicodeText(*data, f.encoding));
  f.lines = splitLines(decodeIni(std::move(*data)));
  for (std::size_t i = 0; i < f.lines.size() && i < unicodeLines.size(); ++i)
    f.lines[i].unicode = unicodeLines[i].text;
  return true;
}

void setEntry(std::vector<RawLine>& lines, std::string_view section, std::string_view key,
              std::string_view value) {
  std::string entry = std::string(key) + "=" + std::string(value);
  // Locate the first section of that name and, inside it, the key.
  std::ptrdiff_t header = -1, keyLine = -1, lastContent = -1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string_view name, k, v;
    if (sectionName(lines[i].text, name)) {
      if (header >= 0) break;
      if (cp::equalsIgnoreCase(name, section))
        header = lastContent = static_cast<std::ptrdiff_t>(i);
      continue;
    }
    if (header < 0) continue;
    if (!trimIni(lines[i].text).empty()) lastContent = static_cast<std::ptrdiff_t>(i);
    if (keyLine < 0 && keyOf(lines[i].text, k, v) && cp::equalsIgnoreCase(k, key)) {
      keyLine = static_cast<std::ptrdiff_t>(i);
      entry = std::string(k) + "=" + std::string(value);  // keep the file's spelling of the key
    }
  }

  if (keyLine >= 0) {
    lines[keyLine] = RawLine{entry, lines[keyLine].eol, std::nullopt};
  } else if (header >= 0) {
    // A new key goes after the last non-blank line of its section.
    RawLine& before = lines[lastContent];
    std::string eol = before.eol.empty() ? "\r\n" : before.eol;
    if (before.eol.empty()) before.eol = eol;
    lines.insert(lines.begin() + lastContent + 1, RawLine{entry, eol, std::nullopt});
  } else {
    if (!lines.empty() && lines.back().eol.empty()) lines.back().eol = "\r\n";
    lines.push_back({"[" + std::string(section) + "]", "\r\n", std::nullopt});
    lines.push_back({entry, "\r\n", std::nullopt});
  }
}

bool save(const std::string& file, const EditedFile& f) {
  std::string out;
  for (const auto& l : f.lines) {
    if (f.encoding == Encoding::Ansi)
      out += l.text + l.eol;
    else
      out += (l.unicode ? *l.unicode : cp::toUtf8(l.text)) + l.eol;
  }
  if (f.encoding == Encoding::Utf8) out = "\xEF\xBB\xBF" + out;
  if (f.encoding == Encoding::Utf16le) out = "\xFF\xFE" + cp::utf8ToUtf16le(out);
  const bool ok = fs::writeFileAtomic(file, out);
  forget(file);
  return ok;
}

}  // namespace

std::string WriteProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::string& file,
                               std::int32_t* status) {
  const bool ok =
      WriteProfileEntries(file, {{std::string(section), std::string(key), std::string(value)}});
  if (status) *status = ok ? 1 : 0;
  return ok ? "1" : "0";
}

bool WriteProfileEntries(const std::string& file, const std::vector<ProfileEntry>& entries) {
  EditedFile f;
  if (!loadForEdit(file, f)) return false;
  for (const ProfileEntry& e : entries) {
    const std::string_view section = trimIni(e.section), key = trimIni(e.key);
    if (section.empty() || key.empty()) return false;
    setEntry(f.lines, section, key, e.value);
  }
  return save(file, f);
}

}  // namespace korvane
