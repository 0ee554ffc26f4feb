// Test vectors kept as data in tests/vectors/: one case a line, fields
// separated by tabs, `[name]` lines naming the group of the cases below them.
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

}  // namespace korvane::test
