// File-system access for texts that name files in the code page of the users'
// files. On Windows the names are handed to the system as they are; elsewhere
// they are converted to UTF-8, "\" is taken as a folder separator, and a name
// that differs only in letter case from a name on disk finds it, so that
// projects written on Windows work on case-sensitive file systems.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::fs {

#ifdef _WIN32
constexpr char kSep = '\\';
#else
constexpr char kSep = '/';
#endif

bool isSeparator(char c);
// The name with a separator at the end (unchanged when it has one or is empty).
std::string withTrailingSeparator(std::string_view folder);
std::string withoutTrailingSeparator(std::string_view folder);
std::string join(std::string_view folder, std::string_view name);
bool isAbsolute(std::string_view name);

// Parts of a file name, as the Windows file-system object splits it.
struct NameParts {
  std::string drive;   // "C:" or "\\server\share"; "/" for a POSIX absolute name
  std::string folder;  // the parent folder, without a trailing separator
  std::string base;    // the name without its extension
  std::string ext;     // the extension without the dot
};
NameParts splitName(std::string_view name);

// The path the system should open for a name, after separator and letter-case
// resolution.
std::filesystem::path native(std::string_view name);
// A system path as text in the users' code page.
std::string fromNative(const std::filesystem::path& p);
// A name in the file system's own encoding, converted without looking at the
// disk (no search for another letter case, as native() makes).
std::string nativeText(std::string_view name);
// The path of a name that nativeText gave.
std::filesystem::path pathOfNativeText(const std::string& name);
// Opens a file as std::fopen does, by its system path.
std::FILE* openFile(const std::filesystem::path& path, const char* mode);

bool fileExists(std::string_view name);
bool folderExists(std::string_view name);
std::optional<std::uintmax_t> fileSize(std::string_view name);
// When a file was last written, in the system's finest unit (100 ns on
// Windows, where the C++ library's file times have only whole seconds).
std::optional<std::int64_t> modifiedTime(std::string_view name);
std::optional<std::int64_t> modifiedTime(const std::filesystem::path& path);
bool removeFile(std::string_view name);
bool copyFile(std::string_view from, std::string_view to);
// Reads a whole file; nullopt when it cannot be read.
std::optional<std::string> readFile(std::string_view name);
// Writes a file through a temporary beside it and a rename, so that a crash
// leaves either the old or the new content.
bool writeFileAtomic(std::string_view name, std::string_view content);
// Appends to a file (created when missing) and flushes it to the disk.
bool appendFile(std::string_view name, std::string_view content);
// The current working folder as text.
std::string currentFolder();
// Makes a name absolute against the current folder.
std::string absolute(std::string_view name);

}  // namespace korvane::fs
