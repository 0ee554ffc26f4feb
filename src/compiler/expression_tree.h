// An expression split at its operators the way the evaluator splits it: at
// the last occurrence of the loosest operator, each side trimmed and taken
// literally when quoted. The split depends on the text alone, so a text met
// again (a repeated line, a condition in a loop) is split once and kept;
// values are still looked up and computed at every evaluation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"

namespace korvane {

struct ExpressionNode {
  enum class Kind : std::uint8_t {
    Word,      // a variable, or a text that stands for itself
    Quoted,    // the text between the quotes
    Operator,  // `op` applied to the values of `left` and `right`
    TooDeep,   // nested beyond the evaluator's limit: evaluating it fails
  };
  Kind kind = Kind::Word;
  char op = 0;
  bool nameLike = false;   // a word the diagnostics ask about when it has no value
  bool hasNumber = false;  // `number` holds the text's Val
  std::uint32_t left = 0, right = 0;
  // A word's or a quoted text's characters, or all of an operator's operands
  // (named in its failure messages), within the tree's text.
  std::uint32_t begin = 0, length = 0;
  double number = 0;
};

struct ExpressionTree {
  std::string text;
  std::vector<ExpressionNode> nodes;  // nodes[0] is the whole expression

  std::string_view textOf(const ExpressionNode& n) const {
    return std::string_view(text).substr(n.begin, n.length);
  }
};

// A text that could be a variable's name: a letter or "_" first, then name
// characters. Numbers and texts with blanks or signs are values of their own.
bool looksLikeName(std::string_view text);

// Splits `text` into `tree`, whose nodes it replaces.
void splitExpression(std::string_view text, ExpressionTree& tree);

// The trees of the texts a run evaluates, up to a bound; beyond it the cache
// starts again. A text holding a temporary's name (from a function call) is
// split each time: no such text comes twice.
class ExpressionCache {
 public:
  static constexpr std::size_t kMaxTexts = 4096;
  static constexpr std::size_t kMaxTextLength = 512;

  const ExpressionTree& tree(std::string_view text);
  // A tree that is not kept: valid until the next call.
  const ExpressionTree& scratch(std::string_view text);

 private:
  std::unordered_map<std::string, ExpressionTree, text::Hash, std::equal_to<>> trees_;
  const ExpressionTree* last_ = nullptr;  // a repeated line asks for the same text again
  ExpressionTree scratch_;
};

}  // namespace korvane
