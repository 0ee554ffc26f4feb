// Flush-and-run throughput: an input whose repeated block queries the project
// after each MX line, so that every repetition closes, runs and reopens the MX
// input through the embedded engine. Prints runs per second.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "base/fs.h"
#include "hosts/embedded/embedded_engine.h"
#include "shell/driver.h"
#include "shell/standard_language.h"

using namespace korvane;
namespace stdfs = std::filesystem;

int main(int argc, char** argv) {
  std::string home =
      argc > 1 ? argv[1] : fs::fromNative(stdfs::path(argv[0]).parent_path() / ".." / "bin");
  const int repeats = argc > 2 ? std::atoi(argv[2]) : 1000;
  stdfs::path dir = stdfs::temp_directory_path() / "korvane-bench-run";
  stdfs::remove_all(dir);
  stdfs::create_directories(dir);
  std::ofstream(dir / "q.ipm", std::ios::binary)
      << "repeat\r\ncrea,model |count|\r\n#n=sheets(long1)\r\ndele,model |count|\r\nendrepeat\r\n";
  std::ofstream(dir / "main.ipf", std::ios::binary) << "insert,q\r\nrepeat=" << repeats << "\r\n";

  hosts::EngineOptions options;
  options.projectFolder = fs::fromNative(dir);
  std::string error;
  auto engine = hosts::embedded::EmbeddedEngine::create(options, error);
  if (!engine) {
    std::fprintf(stderr, "engine: %s\n", error.c_str());
    return 1;
  }
  RunContext ctx;
  ctx.projectFolder = fs::withTrailingSeparator(options.projectFolder);
  ctx.settingsPath = home + "/Korvane.ini";
  ctx.messages = Messages(home + "/English.lng");
  ctx.language = &standardLanguage();
  ctx.engine = engine.get();

  auto t0 = std::chrono::steady_clock::now();
  bool ok = ApplyOneFile(ctx, fs::fromNative(dir / "main.ipf"));
  double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  std::printf("flush-and-run: %d engine runs in %.2f s = %.0f runs/s (%.2f ms a run)%s\n",
              ctx.engineRuns, s, ctx.engineRuns / s, 1000 * s / ctx.engineRuns,
              ok ? "" : "  (STOPPED)");
  if (!ok) std::printf("  %s\n", ctx.stop.message.c_str());
  engine.reset();
  stdfs::remove_all(dir);
  return ok ? 0 : 1;
}
