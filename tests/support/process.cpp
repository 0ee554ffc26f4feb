#include "support/process.h"

#include <cstdlib>
#include <cstring>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#endif

namespace korvane::test {

std::vector<std::string> shellWords(const std::string& line) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '\'' || c == '"') {
      const std::size_t end = line.find(c, i + 1);
      word += line.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1);
      i = end == std::string::npos ? line.size() : end;
      inWord = true;
    } else if (c == ' ' || c == '\t') {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return words;
}

std::string builtProgram(const std::string& name) {
#ifdef _WIN32
  return std::string(KORVANE_BIN_DIR) + "/" + name + ".exe";
#else
  return std::string(KORVANE_BIN_DIR) + "/" + name;
#endif
}

int currentProcessId() {
#ifdef _WIN32
  return static_cast<int>(GetCurrentProcessId());
#else
  return static_cast<int>(getpid());
#endif
}

#ifdef _WIN32
namespace {

// One argument as the C runtime's command-line parser reads it back.
std::string quoted(const std::string& arg) {
  if (!arg.empty() && arg.find_first_of(" \t\"") == std::string::npos) return arg;
  std::string q = "\"";
  std::size_t backslashes = 0;
  for (char c : arg) {
    if (c == '\\') {
      ++backslashes;
      continue;
    }
    if (c == '"')
      q.append(backslashes * 2 + 1, '\\');
    else
      q.append(backslashes, '\\');
    backslashes = 0;
    q += c;
  }
  q.append(backslashes * 2, '\\');
  return q + "\"";
}

HANDLE openStream(const std::string& name, bool write) {
  SECURITY_ATTRIBUTES sa{sizeof sa, nullptr, TRUE};
  const std::string file = name.empty() ? "NUL" : name;
  return CreateFileA(file.c_str(), write ? GENERIC_WRITE : GENERIC_READ,
                     FILE_SHARE_READ | FILE_SHARE_WRITE, &sa, write ? CREATE_ALWAYS : OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The inherited environment with the run's own variables set.
std::string environmentBlock(const std::map<std::string, std::string>& extra) {
  std::map<std::string, std::string> vars;
  char* block = GetEnvironmentStringsA();
  for (const char* p = block; *p; p += std::strlen(p) + 1) {
    std::string entry = p;
    const std::size_t eq = entry.find('=', 1);
    if (eq != std::string::npos) vars[entry.substr(0, eq)] = entry.substr(eq + 1);
  }
  FreeEnvironmentStringsA(block);
  for (const auto& [k, v] : extra) vars[k] = v;
  std::string out;
  for (const auto& [k, v] : vars) out += k + "=" + v + '\0';
  return out + '\0';
}

}  // namespace

int runProgram(const ProgramRun& run) {
  std::string line;
  for (const auto& a : run.argv) line += (line.empty() ? "" : " ") + quoted(a);
  STARTUPINFOA si{};
  si.cb = sizeof si;
  si.dwFlags = STARTF_USESTDHANDLES;
  si.hStdInput = openStream(run.in, false);
  si.hStdOutput = openStream(run.out, true);
  si.hStdError = openStream(run.err, true);
  std::string env = environmentBlock(run.env);
  PROCESS_INFORMATION pi{};
  const BOOL started = CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, env.data(),
                                      run.folder.empty() ? nullptr : run.folder.c_str(), &si, &pi);
  for (HANDLE h : {si.hStdInput, si.hStdOutput, si.hStdError})
    if (h != INVALID_HANDLE_VALUE) CloseHandle(h);
  if (!started) return -1;
  DWORD code = static_cast<DWORD>(-1);
  if (WaitForSingleObject(pi.hProcess, run.timeoutSeconds * 1000) == WAIT_OBJECT_0)
    GetExitCodeProcess(pi.hProcess, &code);
  else
    TerminateProcess(pi.hProcess, static_cast<UINT>(-1));
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
  return static_cast<int>(code);
}

#else

int runProgram(const ProgramRun& run) {
  const pid_t child = fork();
  if (child < 0) return -1;
  if (child == 0) {
    auto redirect = [](const std::string& name, int fd, int flags) {
      const int f = open(name.empty() ? "/dev/null" : name.c_str(), flags, 0644);
      if (f < 0) _exit(127);
      dup2(f, fd);
      close(f);
    };
    if (!run.folder.empty() && chdir(run.folder.c_str()) != 0) _exit(127);
    redirect(run.in, 0, O_RDONLY);
    redirect(run.out, 1, O_WRONLY | O_CREAT | O_TRUNC);
    redirect(run.err, 2, O_WRONLY | O_CREAT | O_TRUNC);
    for (const auto& [k, v] : run.env) setenv(k.c_str(), v.c_str(), 1);
    if (run.interruptWhen) signal(SIGINT, SIG_DFL);  // even where we were started ignoring it
    std::vector<char*> argv;
    for (const auto& a : run.argv) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(run.timeoutSeconds);
  int status = 0;
  bool interrupted = false;
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (run.interruptWhen && !interrupted && run.interruptWhen()) {
      kill(child, SIGINT);
      interrupted = true;
    }
    if (std::chrono::steady_clock::now() > deadline) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

}  // namespace korvane::test
