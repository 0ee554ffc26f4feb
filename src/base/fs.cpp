#include "base/fs.h"

#include <cstdio>
#include <fstream>
#include <system_error>

#include "base/codepage.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace korvane::fs {
namespace stdfs = std::filesystem;

bool isSeparator(char c) { return c == '\\' || c == '/'; }

std::string withTrailingSeparator(std::string_view folder) {
  std::string f(folder);
  if (!f.empty() && !isSeparator(f.back())) f += kSep;
  return f;
}

std::string withoutTrailingSeparator(std::string_view folder) {
  std::string f(folder);
  while (f.size() > 1 && isSeparator(f.back())) f.pop_back();
  return f;
}

std::string join(std::string_view folder, std::string_view name) {
  return withTrailingSeparator(folder) + std::string(name);
}

bool isAbsolute(std::string_view name) {
  if (name.size() >= 2 && name[1] == ':') return true;  // drive letter
  if (name.size() >= 2 && name[0] == '\\' && name[1] == '\\') return true;
#ifndef _WIN32
  if (!name.empty() && name[0] == '/') return true;
#endif
  return false;
}

NameParts splitName(std::string_view name) {
  NameParts p;
  std::size_t start = 0;
  if (name.size() >= 2 && name[1] == ':') {
    p.drive = std::string(name.substr(0, 2));
    start = 2;
  } else if (name.size() >= 2 && name[0] == '\\' && name[1] == '\\') {
    std::size_t s1 = name.find_first_of("\\/", 2);
    std::size_t s2 = s1 == std::string_view::npos ? s1 : name.find_first_of("\\/", s1 + 1);
    start = s2 == std::string_view::npos ? name.size() : s2;
    p.drive = std::string(name.substr(0, start));
  }
#ifndef _WIN32
  else if (!name.empty() && name[0] == '/') {
    p.drive = "/";
  }
#endif
  std::size_t lastSep = name.find_last_of("\\/");
  std::string_view file = name;
  if (lastSep != std::string_view::npos && lastSep >= start) {
    std::string_view folder = name.substr(0, lastSep);
    p.folder = folder.empty() ? std::string(1, name[0]) : std::string(folder);
    file = name.substr(lastSep + 1);
  } else {
    file = name.substr(start);
  }
  std::size_t dot = file.find_last_of('.');
  if (dot == std::string_view::npos) {
    p.base = std::string(file);
  } else {
    p.base = std::string(file.substr(0, dot));
    p.ext = std::string(file.substr(dot + 1));
  }
  return p;
}

#ifdef _WIN32
// The system's ANSI code page is the users' code page on Windows. The C++
// library's own conversions of narrow paths do not use it (they read bytes as
// Latin-1 and write UTF-8), so every path goes through the system's.
stdfs::path pathOfNativeText(const std::string& name) {
  const int n =
      MultiByteToWideChar(CP_ACP, 0, name.data(), static_cast<int>(name.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(n), L'\0');
  MultiByteToWideChar(CP_ACP, 0, name.data(), static_cast<int>(name.size()), wide.data(), n);
  return stdfs::path(std::move(wide));
}
stdfs::path native(std::string_view name) { return pathOfNativeText(std::string(name)); }
std::string fromNative(const stdfs::path& p) {
  const std::wstring& wide = p.native();
  const int n = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), nullptr,
                                    0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(n), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(), n,
                      nullptr, nullptr);
  return text;
}
std::string nativeText(std::string_view name) { return std::string(name); }
#else
stdfs::path pathOfNativeText(const std::string& name) { return stdfs::path(name); }
std::string nativeText(std::string_view name) {
  std::string utf8 = cp::toUtf8(name);
  for (char& c : utf8)
    if (c == '\\') c = '/';
  return utf8;
}

namespace {
// Finds an entry of `dir` whose name equals `want` ignoring letter case.
std::optional<stdfs::path> findIgnoringCase(const stdfs::path& dir, const std::string& want) {
  std::error_code ec;
  const std::string wantCp = cp::fromUtf8(want);
  for (stdfs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    std::string n = it->path().filename().string();
    std::string nCp = cp::looksLikeUtf8(n) ? cp::fromUtf8(n) : n;
    if (cp::equalsIgnoreCase(nCp, wantCp)) return it->path();
  }
  return std::nullopt;
}
}  // namespace

stdfs::path native(std::string_view name) {
  std::string utf8 = cp::toUtf8(name);
  for (char& c : utf8)
    if (c == '\\') c = '/';
  stdfs::path p(utf8);
  std::error_code ec;
  if (stdfs::exists(p, ec) || utf8.empty()) return p;
  // Walk the components, taking the on-disk spelling where only the case differs.
  stdfs::path built = p.is_absolute() ? stdfs::path("/") : stdfs::path();
  bool resolving = true;
  for (const auto& part : p.relative_path()) {
    std::string s = part.string();
    if (s.empty()) continue;
    stdfs::path next = built / part;
    if (resolving && !stdfs::exists(next, ec) && s != "." && s != "..") {
      auto found = findIgnoringCase(built.empty() ? stdfs::path(".") : built, s);
      if (found) {
        next = built / found->filename();
      } else {
        resolving = false;
      }
    }
    built = next;
  }
  return built;
}

std::string fromNative(const stdfs::path& p) {
  std::string s = p.string();
  return cp::looksLikeUtf8(s) ? cp::fromUtf8(s) : s;
}
#endif

bool fileExists(std::string_view name) {
  std::error_code ec;
  return !name.empty() && stdfs::is_regular_file(native(name), ec);
}

bool folderExists(std::string_view name) {
  std::error_code ec;
  return !name.empty() && stdfs::is_directory(native(name), ec);
}

std::optional<std::uintmax_t> fileSize(std::string_view name) {
  std::error_code ec;
  auto s = stdfs::file_size(native(name), ec);
  if (ec) return std::nullopt;
  return s;
}

std::optional<std::int64_t> modifiedTime(const std::filesystem::path& path) {
#ifdef _WIN32
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  return static_cast<std::int64_t>(data.ftLastWriteTime.dwHighDateTime) << 32 |
         data.ftLastWriteTime.dwLowDateTime;
#else
  std::error_code ec;
  auto t = stdfs::last_write_time(path, ec);
  if (ec) return std::nullopt;
  return t.time_since_epoch().count();
#endif
}

std::optional<std::int64_t> modifiedTime(std::string_view name) {
  return modifiedTime(native(name));
}

bool removeFile(std::string_view name) {
  std::error_code ec;
  return stdfs::remove(native(name), ec);
}

bool copyFile(std::string_view from, std::string_view to) {
#ifdef _WIN32
  // MinGW's copy_file refuses to overwrite an existing file ("File exists").
  return CopyFileW(native(from).c_str(), native(to).c_str(), FALSE) != 0;
#else
  std::error_code ec;
  stdfs::path target = native(to);
  stdfs::copy_file(native(from), target, stdfs::copy_options::overwrite_existing, ec);
  return !ec;
#endif
}

std::optional<std::string> readFile(std::string_view name) {
  std::ifstream in(native(name), std::ios::binary);
  if (!in) return std::nullopt;
  try {
    std::string data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) return std::nullopt;
    return data;
  } catch (const std::ios_base::failure&) {
    // A folder opens as a stream and fails at the first read, by an exception.
    return std::nullopt;
  }
}

std::FILE* openFile(const stdfs::path& path, const char* mode) {
#ifdef _WIN32
  const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
  return _wfopen(path.c_str(), wideMode.c_str());
#else
  return std::fopen(path.c_str(), mode);
#endif
}

bool writeFileAtomic(std::string_view name, std::string_view content) {
  stdfs::path target = native(name);
  std::error_code ec;
  // A link is written through, to the file it names; a device, a pipe or a
  // folder is never replaced by a plain file.
  if (stdfs::is_symlink(stdfs::symlink_status(target, ec))) {
    target = stdfs::weakly_canonical(target, ec);
    if (ec) return false;
  }
  const auto st = stdfs::status(target, ec);
  if (stdfs::exists(st) && !stdfs::is_regular_file(st)) return false;
  stdfs::path tmp = target;
  tmp += ".korvane-new";
  {
    std::FILE* f = openFile(tmp, "wb");
    if (!f) return false;
    bool ok = std::fwrite(content.data(), 1, content.size(), f) == content.size();
    ok = std::fflush(f) == 0 && ok;
#ifndef _WIN32
    ok = ::fsync(fileno(f)) == 0 && ok;
#endif
    ok = std::fclose(f) == 0 && ok;
    if (!ok) {
      std::error_code ec;
      stdfs::remove(tmp, ec);
      return false;
    }
  }
  stdfs::rename(tmp, target, ec);
  if (ec) {
    stdfs::remove(tmp, ec);
    return false;
  }
  return true;
}

bool appendFile(std::string_view name, std::string_view content) {
  std::FILE* f = openFile(native(name), "ab");
  if (!f) return false;
  bool ok = std::fwrite(content.data(), 1, content.size(), f) == content.size();
  ok = std::fflush(f) == 0 && ok;
  return std::fclose(f) == 0 && ok;
}

std::string currentFolder() {
  std::error_code ec;
  return fromNative(stdfs::current_path(ec));
}

std::string absolute(std::string_view name) {
  if (isAbsolute(name)) return std::string(name);
  return join(currentFolder(), name);
}

}  // namespace korvane::fs
