// Registry and file-version helpers. They use the Win32 API on Windows; other
// systems have no registry or version resources, so the answers are empty,
// which callers already treat as "not found".
#pragma once

#include <cstdint>
#include <string>

namespace korvane {

enum class RegistryHive { ClassesRoot, CurrentUser, LocalMachine };

// An opened registry key; 0 when it could not be opened.
using RegistryKey = std::uintptr_t;
RegistryKey OpenRegistryKey(RegistryHive hive, const std::string& subkey);
void CloseRegistryKey(RegistryKey key);

// The text of a value (trailing control characters removed), or empty text.
std::string ReadRegistryString(RegistryHive hive, const std::string& subkey,
                               const std::string& valueName, std::int32_t* status = nullptr);
// Subkey number `index` of an open key, or empty text; empty at once when
// `failed` is set on entry. Sets `failed` when there is no such subkey.
std::string EnumRegistrySubkey(RegistryKey key, std::uint32_t index, bool& failed,
                               std::int32_t* status = nullptr);
// "major.minor" of a file's version resource, or empty text.
std::string GetFileVersionText(const std::string& path, std::int32_t* status = nullptr);

}  // namespace korvane
