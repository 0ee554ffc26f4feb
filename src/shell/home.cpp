#include "shell/home.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/fs.h"
#include "base/profile.h"

#ifdef _WIN32
#include <windows.h>
#endif

#ifndef KORVANE_DATA_DIR
#define KORVANE_DATA_DIR ""
#endif

namespace korvane {

std::string envText(const char* name) {
  const char* v = std::getenv(name);
  return v ? fs::fromNative(std::filesystem::path(v)) : std::string();
}

namespace {

const char* const kSettingsName = "Korvane.ini";

// The settings and language files installed with the program: beside it in
// "../share/korvane" wherever the installation was put, else where the build
// meant to install them. Empty when neither holds a settings file.
std::string installedDefaults() {
  std::error_code ec;
  const auto beside = std::filesystem::weakly_canonical(
      fs::native(programFolder()) / ".." / "share" / "korvane", ec);
  if (!ec && fs::fileExists(fs::join(fs::fromNative(beside), kSettingsName)))
    return fs::fromNative(beside);
  const std::string built = KORVANE_DATA_DIR;
  if (!built.empty() && fs::fileExists(fs::join(built, kSettingsName))) return built;
  return {};
}

// The per-user folder; the installed defaults are copied into it when it has
// no settings file yet.
std::string userFolder() {
#ifdef _WIN32
  std::string base = envText("APPDATA");
#else
  std::string base = envText("XDG_CONFIG_HOME");
  if (base.empty() && !envText("HOME").empty()) base = fs::join(envText("HOME"), ".config");
#endif
  if (base.empty()) return {};
  std::string folder = fs::join(base, "korvane");
  if (fs::fileExists(fs::join(folder, kSettingsName))) return folder;
  const std::string defaults = installedDefaults();
  if (defaults.empty()) return folder;
  std::error_code ec;
  std::filesystem::create_directories(fs::native(folder), ec);
  for (const auto& e : std::filesystem::directory_iterator(fs::native(defaults), ec)) {
    auto target = fs::native(folder) / e.path().filename();
    // Files and the macro folder alike.
    if (!std::filesystem::exists(target, ec))
      std::filesystem::copy(e.path(), target, std::filesystem::copy_options::recursive, ec);
  }
  return folder;
}

}  // namespace

std::string languageFileName(const std::string& code) {
  std::string lower;
  for (char c : code) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower == "hu" || lower == "hungarian") return "Hungarian";
  if (lower == "en" || lower == "english") return "English";
  return code;
}

std::string programFolder() {
#ifdef _WIN32
  char buf[MAX_PATH] = {};
  GetModuleFileNameA(nullptr, buf, MAX_PATH);
  return fs::fromNative(std::filesystem::path(buf).parent_path());
#else
  std::error_code ec;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return fs::currentFolder();
  return fs::fromNative(exe.parent_path());
#endif
}

bool resolveHome(const std::string& explicitHome, HomePaths& out, std::string& error,
                 const std::string& language) {
  std::string home = explicitHome;
  if (home.empty()) home = envText("KORVANE_HOME");
  if (home.empty()) {
    home = programFolder();
    if (!fs::fileExists(fs::join(home, kSettingsName))) {
      std::string user = userFolder();
      if (!user.empty() && fs::fileExists(fs::join(user, kSettingsName)))
        home = user;
      else if (std::string installed = installedDefaults(); !installed.empty())
        home = installed;  // no per-user folder to be had: the installed files as they are
      else if (!user.empty())
        home = user;
    }
  }
  home = fs::withoutTrailingSeparator(fs::absolute(home));
  out.home = home;
  out.settings = fs::join(home, kSettingsName);
  if (!fs::fileExists(out.settings)) {
    error = "File not found: " + out.settings;
    return false;
  }
  std::string lang = language.empty() ? envText("KORVANE_LANG") : language;
  lang =
      lang.empty() ? ReadProfileString("Language", "lang", out.settings) : languageFileName(lang);
  out.hungarianHelp = lang == "Hungarian";
  out.language = fs::join(home, lang + ".lng");
  if (!fs::fileExists(out.language)) {
    error = "File not found: " + out.language;
    return false;
  }
  return true;
}

}  // namespace korvane
