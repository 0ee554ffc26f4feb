// Test data kept as files: vectors in tests/vectors/ (one case a line, fields
// separated by tabs, `[name]` lines naming the group of the cases below them),
// and case folders whose every input file sits beside its expected result.
#pragma once

#include <string>
#include <vector>

namespace korvane::test {

struct Vector {
  std::string where;  // "file:line [group]", for failure messages
  std::vector<std::string> fields;
};

// The cases of tests/vectors/`name`, each with exactly `fields` fields (a line
// with another count fails the test that reads it). Fields are C-escaped.
std::vector<Vector> readVectors(const std::string& name, std::size_t fields);

// The names, without `extension`, of the files tests/`folder`/*`extension`, sorted.
std::vector<std::string> caseNames(const std::string& folder, const std::string& extension);
// A case's name as a test's name: letters and digits, "_" for the rest.
std::string testName(const std::string& caseName);
// The Linemode input of tests/engine_cases/`name`.txt ("" when there is none).
std::string engineCase(const std::string& name);
// Expects `got` to be the content of the file `expected`; with
// KORVANE_WRITE_GOLDEN=1 in the environment writes it there instead (read
// each file so written before keeping it).
void expectFileHolds(const std::string& expected, const std::string& got);

}  // namespace korvane::test
