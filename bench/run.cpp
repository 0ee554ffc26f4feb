// Flush-and-run throughput: an input whose repeated block queries the project
// after each MX line, so that every repetition closes, runs and reopens the MX
// input through the embedded engine. Prints runs per second.
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "support/bench_project.h"

using namespace korvane;

int main(int argc, char** argv) {
  bench::BenchProject project("korvane-bench-run", argc, argv);
  const int repeats = argc > 2 ? std::atoi(argv[2]) : 1000;
  project.write(
      "q.ipm",
      "repeat\r\ncrea,model |count|\r\n#n=sheets(long1)\r\ndele,model |count|\r\nendrepeat\r\n");
  project.write("main.ipf", "insert,q\r\nrepeat=" + std::to_string(repeats) + "\r\n");
  auto* engine = project.startEngine();
  if (!engine) return 1;
  RunContext ctx;
  project.prepare(ctx, engine);
  int runs = 0;
  ctx.onEngineRun = [&](const korvane::EngineRunCause& run) { runs = run.number; };

  auto t0 = std::chrono::steady_clock::now();
  const std::optional<Stopped> stopped = ApplyOneFile(ctx, project.path("main.ipf"));
  const bool ok = !stopped;
  double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  std::printf("flush-and-run: %d engine runs in %.2f s = %.0f runs/s (%.2f ms a run)%s\n", runs, s,
              runs / s, 1000 * s / runs, ok ? "" : "  (STOPPED)");
  if (!ok) std::printf("  %s\n", stopped->message.c_str());
  return ok ? 0 : 1;
}
