// The engine's report of a run: every record it executed or refused with its
// line number, what each did, the GENIO output that no "over" redirected, and
// the error that stopped the run.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace korvane::engine {

class Listing {
 public:
  static constexpr const char* kFileName = "korvane-engine.lst";

  // Opens the listing file; what the run writes replaces what it held.
  // EngineError when it cannot be written.
  explicit Listing(const std::string& path);
  // Ends the listing: cut to the length written.
  ~Listing();
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;
  const std::string& path() const { return path_; }

  void text(std::string_view line);                  // a line as it stands
  void record(int lineNo, std::string_view record);  // "    12  geni,ROAD"
  void note(std::string_view what);                  // what the last record did
  void error(int lineNo, std::string_view reason);

 private:
  std::ofstream out_;
  std::string path_;
  std::filesystem::path file_;
};

}  // namespace korvane::engine
