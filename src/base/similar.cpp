#include "base/similar.h"

#include <algorithm>
#include <cctype>

namespace korvane::text {
namespace {

char fold(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

// Words longer than this are not compared: no keyword is anywhere near.
constexpr std::size_t kLongest = 64;

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
  const std::size_t n = a.size(), m = b.size();
  std::vector<std::size_t> prev2(m + 1), prev(m + 1), cur(m + 1);
  for (std::size_t j = 0; j <= m; ++j) prev[j] = j;
  for (std::size_t i = 1; i <= n; ++i) {
    cur[0] = i;
    for (std::size_t j = 1; j <= m; ++j) {
      const std::size_t cost = fold(a[i - 1]) == fold(b[j - 1]) ? 0 : 1;
      cur[j] = std::min({prev[j] + 1, cur[j - 1] + 1, prev[j - 1] + cost});
      if (i > 1 && j > 1 && fold(a[i - 1]) == fold(b[j - 2]) && fold(a[i - 2]) == fold(b[j - 1]))
        cur[j] = std::min(cur[j], prev2[j - 2] + 1);
    }
    prev2.swap(prev);
    prev.swap(cur);
  }
  return prev[m];
}

std::string closestWord(std::string_view word, const std::vector<std::string>& candidates) {
  if (word.empty() || word.size() > kLongest) return {};
  const std::size_t allowed = word.size() <= 4 ? 1 : 2;
  std::string best;
  std::size_t bestDistance = allowed + 1;
  for (const std::string& c : candidates) {
    if (c.size() > word.size() + allowed || c.size() + allowed < word.size()) continue;
    const std::size_t d = editDistance(word, c);
    if (d == 0) return {};
    if (d < bestDistance) {
      bestDistance = d;
      best = c;
    }
  }
  return best;
}

}  // namespace korvane::text
