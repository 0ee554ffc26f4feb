#include "cli/commands.h"

namespace korvane::cli {
namespace {
int g_exitCode = 0;
}
void setExitCode(int code) { g_exitCode = code; }
int exitCode() { return g_exitCode; }
}  // namespace korvane::cli
