#include "hosts/embedded/listing.h"

#include <cstdio>

namespace korvane::hosts::embedded {

bool Listing::open(const std::string& path, std::string& error) {
  path_ = path;
  out_.open(path, std::ios::binary | std::ios::trunc);
  if (!out_) {
    error = "cannot write the engine listing " + path;
    return false;
  }
  return true;
}

void Listing::text(std::string_view line) {
  if (out_) out_ << line << '\n';
}

void Listing::record(int lineNo, std::string_view record) {
  char num[16];
  std::snprintf(num, sizeof num, "%6d  ", lineNo);
  text(std::string(num) + std::string(record));
}

void Listing::note(std::string_view what) { text("          " + std::string(what)); }

void Listing::error(int lineNo, std::string_view reason) {
  text("**** error at line " + std::to_string(lineNo) + ": " + std::string(reason));
}

}  // namespace korvane::hosts::embedded
