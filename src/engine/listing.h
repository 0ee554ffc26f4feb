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

  Listing() = default;
  ~Listing();
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;

  // Opens the listing file; what the run writes replaces what it held.
  bool open(const std::string& path, std::string& error);
  // Ends the listing (also done when it goes out of scope).
  void close();
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
