#include "base/registry.h"

#ifdef _WIN32
#include <windows.h>

#include <vector>
#endif

namespace korvane {

#ifdef _WIN32
namespace {
HKEY hiveHandle(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::ClassesRoot:
      return HKEY_CLASSES_ROOT;
    case RegistryHive::CurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryHive::LocalMachine:
      return HKEY_LOCAL_MACHINE;
  }
  return HKEY_CURRENT_USER;
}
}  // namespace

RegistryKey OpenRegistryKey(RegistryHive hive, const std::string& subkey) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(hiveHandle(hive), subkey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
  return reinterpret_cast<RegistryKey>(key);
}

void CloseRegistryKey(RegistryKey key) {
  if (key) RegCloseKey(reinterpret_cast<HKEY>(key));
}

std::string ReadRegistryString(RegistryHive hive, const std::string& subkey,
                               const std::string& valueName, std::int32_t* status) {
  HKEY key = nullptr;
  LONG rc = RegOpenKeyExA(hiveHandle(hive), subkey.c_str(), 0, KEY_QUERY_VALUE, &key);
  std::string result;
  if (rc == ERROR_SUCCESS) {
    DWORD size = 0;
    rc = RegQueryValueExA(key, valueName.c_str(), nullptr, nullptr, nullptr, &size);
    if (rc == ERROR_SUCCESS && size >= 2) {
      std::vector<char> buf(size, '\0');
      rc = RegQueryValueExA(key, valueName.c_str(), nullptr, nullptr,
                            reinterpret_cast<BYTE*>(buf.data()), &size);
      if (rc == ERROR_SUCCESS) {
        result.assign(buf.data(), size);
        while (!result.empty() && static_cast<unsigned char>(result.back()) < 32) result.pop_back();
      }
    }
    RegCloseKey(key);
  }
  if (status) *status = rc;
  return result;
}

std::string EnumRegistrySubkey(RegistryKey key, std::uint32_t index, bool& failed,
                               std::int32_t* status) {
  if (failed) return {};
  char buf[256] = {};
  LONG rc = RegEnumKeyA(reinterpret_cast<HKEY>(key), index, buf, sizeof buf);
  if (status) *status = rc;
  if (rc != ERROR_SUCCESS) {
    failed = true;
    return {};
  }
  std::string s(buf, sizeof buf);
  while (!s.empty() && static_cast<unsigned char>(s.back()) < 33) s.pop_back();
  return s;
}

std::string GetFileVersionText(const std::string& path, std::int32_t* status) {
  DWORD handle = 0;
  DWORD size = GetFileVersionInfoSizeA(path.c_str(), &handle);
  if (status) *status = static_cast<std::int32_t>(size);
  if (size == 0) return {};
  std::vector<char> data(size);
  if (!GetFileVersionInfoA(path.c_str(), 0, size, data.data())) return {};
  VS_FIXEDFILEINFO* info = nullptr;
  UINT len = 0;
  if (!VerQueryValueA(data.data(), "\\", reinterpret_cast<void**>(&info), &len) || !info) return {};
  return std::to_string(HIWORD(info->dwFileVersionMS)) + "." +
         std::to_string(LOWORD(info->dwFileVersionMS));
}

#else

RegistryKey OpenRegistryKey(RegistryHive, const std::string&) { return 0; }
void CloseRegistryKey(RegistryKey) {}

std::string ReadRegistryString(RegistryHive, const std::string&, const std::string&,
                               std::int32_t* status) {
  if (status) *status = 2;  // ERROR_FILE_NOT_FOUND: there is no registry here
  return {};
}

std::string EnumRegistrySubkey(RegistryKey, std::uint32_t, bool& failed, std::int32_t* status) {
  if (status) *status = 259;  // ERROR_NO_MORE_ITEMS
  failed = true;
  return {};
}

std::string GetFileVersionText(const std::string&, std::int32_t* status) {
  if (status) *status = 0;
  return {};
}

#endif

}  // namespace korvane
