// Compile throughput: generated inputs of over a million MX lines, compiled
// without an engine. Prints lines per second and the peak memory.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <string>

#include "hosts/mx/null_engine.h"
#include "support/bench_project.h"

using namespace korvane;

namespace {

struct Case {
  const char* name;
  const char* macro;  // the repeated block
  int repeats;
  int linesPerRepeat;
};

long peakKiB() {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  return u.ru_maxrss;
}

void run(const Case& c, const bench::BenchProject& project) {
  std::string plain;
  for (int i = 0; i < 1000; ++i) plain += "crea,plain model " + std::to_string(i) + "\r\n";
  project.write("blk.ipm", std::string("repeat\r\n") + c.macro + "endrepeat\r\n");
  project.write("main.ipf", plain + "insert,blk\r\nrepeat=" + std::to_string(c.repeats) + "\r\n");

  hosts::NullEngine engine(project.folder(), {});
  RunContext ctx;
  project.prepare(ctx, &engine);
  long lines = 0;
  ctx.output.setMxTap([&](std::string_view) { ++lines; });

  auto t0 = std::chrono::steady_clock::now();
  const std::optional<Stopped> stopped = ApplyOneFile(ctx, project.path("main.ipf"));
  const bool ok = !stopped;
  double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  std::printf("%-22s %9ld lines in %6.2f s = %10.0f lines/s  peak memory %ld KiB%s\n", c.name,
              lines, s, lines / s, peakKiB(), ok ? "" : "  (STOPPED)");
  if (!ok) std::printf("  %s\n", stopped->message.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  bench::BenchProject project("korvane-bench-compile", argc, argv);

  const Case cases[] = {
      {"plain/expr/repeat",
       "crea,plain line\r\n   a comment line\r\ncrea,m|count|\r\n|count*2+1|,|count&\"x\"|\r\n",
       250000, 4},
      {"function-heavy",
       "crea,|len(\"abcdef\")|,|mid(\"abcdef\",count-int(count/6)*6+1,2)|\r\n"
       "|format(count*0.125,\"0.000\")|,|sqr(count)|,|lg(count)|\r\n"
       "#if find(\"xyz\",\"y\")=2 then ok=1\r\ncrea,|left(\"model\",3)|_|right(count,2)|\r\n",
       350000, 3},
  };
  for (const auto& c : cases) run(c, project);
  return 0;
}
