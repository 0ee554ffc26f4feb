#include "engine/listing.h"

#include <cstdio>

#include "base/fs.h"
#include "engine/engine_error.h"

namespace korvane::engine {

Listing::Listing(const std::string& path)
    : path_(path), file_(korvane::fs::pathOfNativeText(path)) {
  // Written over in place and cut to its new length at the end: emptying it
  // first would free its blocks and take new ones on every run, and some file
  // systems (those that discard freed blocks) make that wait for the disk.
  out_.open(path, std::ios::binary | std::ios::in | std::ios::out);
  if (!out_) {
    out_.clear();
    out_.open(path, std::ios::binary | std::ios::out | std::ios::trunc);
  }
  if (!out_) throw EngineError("cannot write the engine listing " + path);
}

Listing::~Listing() {
  const std::streamoff length = out_.tellp();
  out_.close();
  std::error_code ec;  // a listing that cannot be cut keeps the old tail; nothing to be done
  if (length >= 0) std::filesystem::resize_file(file_, static_cast<std::uintmax_t>(length), ec);
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

}  // namespace korvane::engine
