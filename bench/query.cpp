// Cost of one model query on the embedded engine, for a model of 100 000
// points (100 strings of 1000): each repetition writes one MX line, so that
// the query's flush-and-run really runs the engine, and then queries the
// model. Prints milliseconds a query (flush-and-run included) per function.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "support/bench_project.h"

using namespace korvane;

namespace {

constexpr int kStrings = 100, kPointsPerString = 1000;

void writeModel(const std::string& file) {
  std::ofstream out(fs::native(file), std::ios::binary);
  out << "001format(3f12.3)\r\n";
  char line[64];
  for (int s = 0; s < kStrings; ++s) {
    std::snprintf(line, sizeof line, "080,S%03d,,7=3\r\n", s);
    out << line;
    for (int i = 0; i < kPointsPerString; ++i) {
      std::snprintf(line, sizeof line, "%12.3f%12.3f%12.3f\r\n", 1000.0 + 3 * i, 5000.0 + 4 * i + s,
                    100.0 + (i % 7));
      out << line;
    }
    out << "       0.000       0.000     100.000\r\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  bench::BenchProject project("korvane-bench-query", argc, argv);
  const int repeats = argc > 2 ? std::atoi(argv[2]) : 50;
  writeModel(project.path("model.genio"));
  auto* engine = project.startEngine();
  if (!engine) return 1;
  auto t0 = std::chrono::steady_clock::now();
  hosts::MxRunResult loaded = engine->importGenio(project.path("model.genio"), "BIG");
  if (!loaded.ok()) {
    std::fprintf(stderr, "import: %s\n", loaded.error.c_str());
    return 1;
  }
  std::printf("model BIG: %d strings, %d points, loaded in %.2f s\n", kStrings,
              kStrings * kPointsPerString,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());

  const char* queries[] = {
      "getchain(BIG,S050,-1)", "getpoint(BIG,S099,500,num,3)", "getdist(BIG,S000,1,BIG,S099,-1)",
      "getlength(BIG,S050)",   "getminmax(BIG,S050)",          "each(BIG,S)",
      "getfreelabel(BIG,s)"};
  bool allOk = true;
  for (const char* q : queries) {
    project.write("q.ipm",
                  std::string("repeat\r\ndele,no model |count|\r\n#v=") + q + "\r\nendrepeat\r\n");
    project.write("main.ipf", "insert,q\r\nrepeat=" + std::to_string(repeats) + "\r\n");
    RunContext ctx;
    project.prepare(ctx, engine);
    auto t = std::chrono::steady_clock::now();
    const std::optional<Stopped> stopped = ApplyOneFile(ctx, project.path("main.ipf"));
    const bool ok = !stopped;
    double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t).count();
    const std::string* v = ctx.vars.find("v");
    std::printf("%-34s %7.2f ms a query (flush-and-run included)  = %s%s\n", q, 1000 * s / repeats,
                v ? v->c_str() : "?", ok ? "" : "  (STOPPED)");
    if (!ok) std::printf("  %s\n", stopped->message.c_str());
    allOk = allOk && ok;
  }
  return allOk ? 0 : 1;
}
