// Figures of the embedded engine: loading a 100 000-point GENIO file, writing
// it back with 081, and the cost of one flush-and-run step (a tiny input that
// creates and deletes a model), timed over 1 000 runs.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "engine/embedded_engine.h"

namespace fs = std::filesystem;
using korvane::engine::EmbeddedEngine;

namespace {

double seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// 100 strings of 1 000 points each in the (3D23.17) layout.
void writeGenio(const fs::path& file) {
  std::ofstream out(file, std::ios::binary);
  out << "   generated for the benchmark\r\n001FORMAT(3D23.17)\r\n003,ORDR,4=1,1,2,3,\r\n";
  char line[128];
  for (int s = 0; s < 100; ++s) {
    std::snprintf(line, sizeof line, "080,B%03d,    ,5=       0.0,       0.0,100007703\r\n", s);
    out << line;
    for (int p = 1; p <= 1000; ++p) {
      double x = 650000.0 + p * 1.25, y = 240000.0 + s * 10.0 + p * 0.01, z = 100.0 + p * 0.001;
      std::snprintf(line, sizeof line, "%23.16E%23.16E%23.16E\r\n", x, y, z);
      out << line;
    }
    out << "0.00000000000000000D+000.00000000000000000D+000.00000000000000000D+00\r\n";
  }
  out << "999\r\n";
}

}  // namespace

int main() {
  fs::path folder = fs::temp_directory_path() / "korvane-engine-bench";
  fs::remove_all(folder);
  fs::create_directories(folder);
  korvane::engine::EngineOptions options;
  options.projectFolder = folder.string();
  std::string error;
  auto engine = EmbeddedEngine::create(options, error);
  if (!engine) {
    std::fprintf(stderr, "bench: %s\n", error.c_str());
    return 1;
  }

  fs::path genio = folder / "points.txt";
  writeGenio(genio);
  auto t = std::chrono::steady_clock::now();
  auto r = engine->importGenio(genio.string(), "BENCH");
  double importTime = seconds(t);
  if (!r.ok()) {
    std::fprintf(stderr, "bench: %s\n", r.error.c_str());
    return 1;
  }
  std::printf("import of 100 000 points (100 strings, %.1f MB): %8.3f s  (%.0f points/s)\n",
              static_cast<double>(fs::file_size(genio)) / 1e6, importTime, 100000 / importTime);

  fs::path input = folder / "output.txt";
  std::ofstream(input, std::ios::binary)
      << "over,out.txt,genio\ngeni,BENCH\n081\n999\nover,,genio\n";
  t = std::chrono::steady_clock::now();
  r = engine->configuration().run("input", input.string());
  double outputTime = seconds(t);
  if (!r.ok()) {
    std::fprintf(stderr, "bench: %s\n", r.error.c_str());
    return 1;
  }
  std::printf("081 output of 100 000 points (%.1f MB):           %8.3f s  (%.0f points/s)\n",
              static_cast<double>(fs::file_size(folder / "out.txt")) / 1e6, outputTime,
              100000 / outputTime);

  fs::path tiny = folder / "tmpinput.txt";
  std::ofstream(tiny, std::ios::binary)
      << "crea,it is just a flag model\r\ndele,it is just a flag model\r\n";
  const int runs = 1000;
  t = std::chrono::steady_clock::now();
  for (int i = 0; i < runs; ++i) {
    r = engine->configuration().run("input", tiny.string());
    if (!r.ok() || engine->configuration().modelExists("it is just a flag model")) {
      std::fprintf(stderr, "bench: run %d failed: %s\n", i, r.error.c_str());
      return 1;
    }
  }
  double runTime = seconds(t);
  std::printf("1 000 runs of a crea/dele input:                   %8.3f s  (%.2f ms a run)\n",
              runTime, runTime * 1000 / runs);
  engine.reset();
  fs::remove_all(folder);
  return 0;
}
