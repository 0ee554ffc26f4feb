// Reading a Linemode input file into lines. Text is Windows-1250 bytes; a file
// that begins with a UTF-8 byte-order mark is taken as UTF-8 and converted.
// Line ends may be CR-LF or LF. Encoding faults that concern single lines
// (NUL bytes, a UTF-16 byte-order mark) are left for the run to report at
// their line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane::engine {

// EngineError when the file cannot be read or is beyond the input limit.
std::vector<std::string> readInputLines(const std::string& path);
void splitLines(std::string_view text, std::vector<std::string>& lines);
// Empty when the line is acceptable text, else why not.
std::string encodingFault(std::string_view line, int lineNo);

}  // namespace korvane::engine
