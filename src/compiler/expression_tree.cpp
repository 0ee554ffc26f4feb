#include "compiler/expression_tree.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/conversions.h"
#include "compiler/expression.h"
#include "compiler/function_dispatch.h"
#include "compiler/variable_table.h"

namespace korvane {
namespace {

// Where each operator sits in the order the split tries them, loosest first.
constexpr char kOperators[] = "&+-*/^";
constexpr std::array<signed char, 256> kOperatorRank = [] {
  std::array<signed char, 256> t{};
  t.fill(-1);
  for (int k = 0; k < 6; ++k)
    t[static_cast<unsigned char>(kOperators[k])] = static_cast<signed char>(k);
  return t;
}();

class Splitter {
 public:
  Splitter(std::string_view text, std::vector<ExpressionNode>& nodes)
      : text_(text), nodes_(nodes) {}

  // The whole expression: split as it stands, neither trimmed nor unquoted.
  void whole() { operands(0, text_.size(), 0); }

 private:
  // One side of an operator: trimmed, and taken literally when quoted. The
  // evaluator counts a level for each; past its limit it would fail here.
  std::uint32_t part(std::size_t begin, std::size_t length, int depth) {
    if (depth >= kMaxExpressionDepth) {
      ExpressionNode n;
      n.kind = ExpressionNode::Kind::TooDeep;
      return add(n);
    }
    const std::string_view s = text_.substr(begin, length);
    const std::size_t first = s.find_first_not_of(' ');
    if (first == std::string_view::npos) return operands(begin, 0, depth);
    begin += first;
    length = s.find_last_not_of(' ') - first + 1;
    if (text_[begin] == '"' && text_[begin + length - 1] == '"') {
      const std::size_t inside = length >= 2 ? length - 2 : 0;
      return literal(ExpressionNode::Kind::Quoted, begin + (length >= 2 ? 1 : 0), inside);
    }
    return operands(begin, length, depth);
  }

  // Split at the last occurrence of the loosest operator that is not the
  // final character; a text with none is a word.
  std::uint32_t operands(std::size_t begin, std::size_t length, int depth) {
    std::size_t last[6];
    std::fill(std::begin(last), std::end(last), std::string_view::npos);
    for (std::size_t i = 0; i < length; ++i)
      if (const int k = kOperatorRank[static_cast<unsigned char>(text_[begin + i])]; k >= 0)
        last[k] = i;
    for (int k = 0; k < 6; ++k) {
      const std::size_t at = last[k];
      if (at == std::string_view::npos || at + 1 >= length) continue;
      ExpressionNode n;
      n.kind = ExpressionNode::Kind::Operator;
      n.op = kOperators[k];
      n.begin = static_cast<std::uint32_t>(begin);
      n.length = static_cast<std::uint32_t>(length);
      const std::uint32_t self = add(n);
      const std::uint32_t l = part(begin, at, depth + 1);
      const std::uint32_t r = part(begin + at + 1, length - at - 1, depth + 1);
      nodes_[self].left = l;  // by index: the vector grew meanwhile
      nodes_[self].right = r;
      return self;
    }
    const std::uint32_t self = literal(ExpressionNode::Kind::Word, begin, length);
    nodes_[self].nameLike = looksLikeName(text_.substr(begin, length));
    return self;
  }

  // A word or a quoted text, with its Val when reading it cannot fail: a text
  // whose Val fails is read again where the evaluation needs it, and fails there.
  std::uint32_t literal(ExpressionNode::Kind kind, std::size_t begin, std::size_t length) {
    ExpressionNode n;
    n.kind = kind;
    n.begin = static_cast<std::uint32_t>(begin);
    n.length = static_cast<std::uint32_t>(length);
    if (const std::optional<double> v = conv::TryVal(text_.substr(begin, length))) {
      n.number = *v;
      n.hasNumber = true;
    }
    return add(n);
  }

  std::uint32_t add(const ExpressionNode& n) {
    nodes_.push_back(n);
    return static_cast<std::uint32_t>(nodes_.size() - 1);
  }

  std::string_view text_;
  std::vector<ExpressionNode>& nodes_;
};

}  // namespace

bool looksLikeName(std::string_view e) {
  if (e.empty() || (e[0] >= '0' && e[0] <= '9') || isTemporaryName(e)) return false;
  return std::all_of(e.begin(), e.end(), isNameCharacter);
}

void splitExpression(std::string_view text, ExpressionTree& tree) {
  tree.text.assign(text);
  tree.nodes.clear();
  Splitter(tree.text, tree.nodes).whole();
}

const ExpressionTree& ExpressionCache::tree(std::string_view text) {
  if (last_ && last_->text == text) return *last_;
  if (auto it = trees_.find(text); it != trees_.end()) return *(last_ = &it->second);
  if (text.size() > kMaxTextLength || text.find("zTMP") != std::string_view::npos)
    return scratch(text);
  if (trees_.size() >= kMaxTexts) trees_.clear();
  ExpressionTree& t = trees_[std::string(text)];
  splitExpression(text, t);
  return *(last_ = &t);
}

const ExpressionTree& ExpressionCache::scratch(std::string_view text) {
  splitExpression(text, scratch_);
  return scratch_;
}

}  // namespace korvane
