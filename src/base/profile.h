// Private-profile (ini) files as Windows reads and writes them: the settings
// file and the language files. Reading never fails: a missing file, section or
// key gives empty text. Writing edits the file in place, byte for byte
// everywhere it does not need to change, and replaces it atomically.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// windows.h names the system's WriteProfileStringA so; ours is another
// function. (Include windows.h before this header where both are needed.)
#ifdef WriteProfileString
#undef WriteProfileString
#endif

namespace korvane {

// Values are cut at this many characters, as a 128-character buffer allows.
constexpr std::size_t kProfileValueMax = 127;

// Reads section/key of file. `status`, when given, receives the number of
// characters returned.
std::string ReadProfileString(std::string_view section, std::string_view key,
                              const std::string& file, std::int32_t* status = nullptr);

// The whole value of section/key, however long: for files of Korvane's own
// (panel files) that no 128-character buffer ever read.
std::string ReadProfileValue(std::string_view section, std::string_view key,
                             const std::string& file);

// Writes section/key = value. Returns "1" on success, "0" on failure; `status`
// receives 1 or 0.
std::string WriteProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::string& file,
                               std::int32_t* status = nullptr);

struct ProfileEntry {
  std::string section, key, value;
};
// Writes every entry, in order, as WriteProfileString would, but reads and
// replaces the file once: a file of many keys is saved whole or not at all.
// False (and the file as it was) when a section or key is blank or the file
// cannot be read or written.
bool WriteProfileEntries(const std::string& file, const std::vector<ProfileEntry>& entries);

}  // namespace korvane
