#include "cli/interrupt_signal.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <signal.h>
#endif

namespace korvane::cli {
namespace {

static_assert(std::atomic<bool>::is_always_lock_free, "set from a signal handler");
std::atomic<bool> g_interrupted{false};

#ifdef _WIN32
// Called on a thread of its own for Ctrl-C and Ctrl-Break; the second one is
// left to the system's handler, which ends the process.
BOOL WINAPI onConsoleControl(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  return g_interrupted.exchange(true) ? FALSE : TRUE;
}
#else
// SA_RESETHAND puts the default action back for the second one.
extern "C" void onInterrupt(int) { g_interrupted.store(true, std::memory_order_relaxed); }
#endif

}  // namespace

const std::atomic<bool>* watchInterrupt() {
  static const bool installed = [] {
#ifdef _WIN32
    SetConsoleCtrlHandler(onConsoleControl, TRUE);
#else
    struct sigaction before {};
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return false;  // started to ignore it (a background job)
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    sigaction(SIGINT, &action, nullptr);
#endif
    return true;
  }();
  (void)installed;
  return &g_interrupted;
}

}  // namespace korvane::cli
