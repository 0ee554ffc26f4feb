#include "longsection/script_drawing.h"

#include <algorithm>

#include "base/codepage.h"
#include "base/conversions.h"
#include "base/text.h"

namespace korvane::longsection {

namespace {

// The answers a script gives to AutoCAD's prompts, one at a time.
class Answers {
 public:
  explicit Answers(const std::string& script) {
    std::size_t from = 0;
    while (from <= script.size()) {
      std::size_t end = script.find('\n', from);
      if (end == std::string::npos) end = script.size();
      std::string line = script.substr(from, end - from);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (end < script.size() || !line.empty()) lines_.push_back(line);
      from = end + 1;
    }
  }
  bool done() const { return line_ >= lines_.size(); }
  // The next answer: up to a blank or the line end; "" for an Enter alone.
  std::string next() {
    if (done()) return {};
    const std::string& line = lines_[line_];
    std::size_t blank = line.find(' ', pos_);
    if (blank == std::string::npos) {
      std::string out = line.substr(pos_);
      advanceLine();
      return out;
    }
    std::string out = line.substr(pos_, blank - pos_);
    pos_ = blank + 1;
    return out;
  }
  // The rest of the line as one answer (the text of a text command).
  std::string rest() {
    if (done()) return {};
    std::string out = lines_[line_].substr(pos_);
    advanceLine();
    return out;
  }
  // Whether the next answer is an Enter alone (a blank line).
  bool nextIsEnter() const { return !done() && pos_ == 0 && lines_[line_].empty(); }

 private:
  void advanceLine() { ++line_, pos_ = 0; }
  std::vector<std::string> lines_;
  std::size_t line_ = 0, pos_ = 0;
};

// A command or option word without the prefixes that pick the English name,
// the built-in command or the command-line form: "_", ".", "-".
std::string word(const std::string& answer) {
  std::size_t i = 0;
  while (i < answer.size() && (answer[i] == '_' || answer[i] == '.' || answer[i] == '-')) ++i;
  return cp::lower(answer.substr(i));
}

bool point(const std::string& answer, DrawPoint& p) {
  const std::size_t comma = answer.find(',');
  if (comma == std::string::npos) return false;
  const std::string x = answer.substr(0, comma);
  std::string y = answer.substr(comma + 1);
  y = y.substr(0, y.find(','));
  if (!conv::IsNumeric(x) || !conv::IsNumeric(y)) return false;
  p = {conv::Val(x), conv::Val(y)};
  return true;
}

double number(const std::string& answer, double otherwise) {
  return conv::IsNumeric(answer) ? conv::Val(answer) : otherwise;
}

struct Reader {
  Answers in;
  Drawing out;
  std::string layer = "0";
  double textHeight = 2.5;

  void line() {
    DrawPolyline l{layer, {}, 0, false};
    for (std::string a = in.next(); !a.empty(); a = in.next()) {
      DrawPoint p;
      if (point(a, p))
        l.points.push_back(p);
      else if (word(a) == "c")
        l.closed = true;
      if (l.closed) break;
    }
    if (l.points.size() >= 2) out.lines.push_back(l);
  }

  void pline() {
    DrawPolyline l{layer, {}, 0, false};
    for (std::string a = in.next(); !a.empty(); a = in.next()) {
      DrawPoint p;
      const std::string w = word(a);
      if (point(a, p)) {
        l.points.push_back(p);
      } else if (w == "w" || w == "h") {  // width, or half width
        const double start = number(in.next(), 0);
        number(in.next(), start);
        l.width = w == "w" ? start : 2 * start;
      } else if (w == "c" || w == "cl") {
        l.closed = true;
        break;
      }
    }
    if (l.points.size() >= 2) out.lines.push_back(l);
  }

  void text() {
    DrawText t{layer, {}, textHeight, 0, {}};
    std::string a = in.next();
    for (;;) {  // justification and style come before the start point
      const std::string w = word(a);
      if (w == "j" || w == "s") {
        in.next();
        a = in.next();
      } else {
        break;
      }
    }
    if (!point(a, t.at)) return;
    t.height = textHeight = number(in.next(), textHeight);
    t.rotation = number(in.next(), 0);
    t.text = in.rest();
    if (t.text.empty()) return;
    out.texts.push_back(t);
    if (in.nextIsEnter()) in.next();  // the Enter that ends the command
  }

  void layerCommand() {
    for (std::string a = in.next(); !a.empty(); a = in.next()) {
      const std::string w = word(a);
      if (w == "m" || w == "s" || w == "set" || w == "make") {
        layer = in.next();
      } else if (w == "lt" || w == "l" || w == "ltype") {
        const std::string type = in.next();
        std::string names = in.next();
        if (names.empty()) names = layer;
        out.lineTypes[names] = type;
      } else if (w == "n" || w == "new" || w == "c" || w == "color" || w == "on" || w == "off") {
        in.next();
        if (w == "c" || w == "color") in.next();
      }
    }
  }

  void skip(const std::string& command) {
    out.skipped.push_back(command);
    while (!in.done() && !in.next().empty()) {
    }
  }

  void run() {
    while (!in.done()) {
      const std::string a = in.next();
      if (a.empty()) continue;  // an Enter between commands
      const std::string w = word(a);
      if (w == "line" || w == "l")
        line();
      else if (w == "pline" || w == "pl")
        pline();
      else if (w == "text" || w == "dtext")
        text();
      else if (w == "layer" || w == "la")
        layerCommand();
      else
        skip(a);
    }
  }
};

}  // namespace

bool Drawing::bounds(DrawPoint& low, DrawPoint& high) const {
  bool any = false;
  auto take = [&](const DrawPoint& p) {
    if (!any) low = high = p;
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    any = true;
  };
  for (const auto& l : lines)
    for (const auto& p : l.points) take(p);
  for (const auto& t : texts) take(t.at);
  return any;
}

Drawing readScript(const std::string& script) {
  Reader r{Answers(script), {}};
  r.run();
  return r.out;
}

}  // namespace korvane::longsection
