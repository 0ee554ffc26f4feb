#include "shell/project_guard.h"

#include <filesystem>

#include "base/fs.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace korvane {

namespace stdfs = std::filesystem;

#ifdef _WIN32
// Windows has no lock on a folder: a lock file opened without sharing, gone
// when it is closed.
bool ProjectLock::acquire(const std::string& projectFolder) {
  const stdfs::path file = fs::native(fs::join(projectFolder, "korvane.lock"));
  HANDLE h = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                         FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  handle_ = reinterpret_cast<std::intptr_t>(h);
  return true;
}

ProjectLock::~ProjectLock() {
  if (handle_ != -1) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}
#else
// The folder itself is locked, so that nothing is written to take the hold.
bool ProjectLock::acquire(const std::string& projectFolder) {
  const int fd = ::open(fs::native(projectFolder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return false;
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    ::close(fd);
    return false;
  }
  handle_ = fd;
  return true;
}

ProjectLock::~ProjectLock() {
  if (handle_ != -1) ::close(static_cast<int>(handle_));
}
#endif

std::vector<std::string> projectOutputs(const std::string& projectFolder,
                                        const std::vector<std::string>& entryFiles,
                                        const std::string& combinedName,
                                        const std::string& separatePrefix) {
  std::vector<std::string> out;
  for (const char* name :
       {"tmpinput.txt", "tmpflag.txt", "tmpinput.scr", "tmpinput.key", "korvane-models.db",
        "korvane-models.db-journal", "korvane-models.db-wal", "korvane-engine.lst"})
    out.push_back(fs::join(projectFolder, name));
  if (!combinedName.empty()) out.push_back(fs::join(projectFolder, combinedName + ".inp"));
  if (!separatePrefix.empty())
    for (const auto& file : entryFiles)
      out.push_back(fs::join(projectFolder, separatePrefix + fs::splitName(file).base + ".inp"));
  return out;
}

namespace {

// A name compared by what it points at: the canonical form of its folder and
// its own name (a file that does not exist yet can still be named twice).
stdfs::path identity(const std::string& name) {
  std::error_code ec;
  stdfs::path p = stdfs::weakly_canonical(fs::native(name), ec);
  return ec ? stdfs::absolute(fs::native(name), ec).lexically_normal() : p;
}

}  // namespace

std::optional<std::string> inputAmongOutputs(const std::vector<std::string>& inputs,
                                             const std::vector<std::string>& outputs) {
  for (const auto& in : inputs) {
    const stdfs::path a = identity(in);
    for (const auto& out : outputs) {
      std::error_code ec;
      if (a == identity(out) || stdfs::equivalent(fs::native(in), fs::native(out), ec)) return in;
    }
  }
  return std::nullopt;
}

}  // namespace korvane
