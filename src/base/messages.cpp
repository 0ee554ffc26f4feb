#include "base/messages.h"

#include "base/profile.h"

namespace korvane {

std::string replaceAll(std::string text, std::string_view what, std::string_view by) {
  if (what.empty()) return text;
  std::size_t pos = 0;
  while ((pos = text.find(what, pos)) != std::string::npos) {
    text.replace(pos, what.size(), by);
    pos += by.size();
  }
  return text;
}

std::string Messages::text(MessageKey key) const {
  return ReadProfileString(key.section, key.key, file_);
}

std::string Messages::format(MessageKey key, std::string_view a1, std::string_view a2) const {
  // One pass, so that a value holding "%1" or "%2" is never replaced again.
  const std::string t = text(key);
  std::string out;
  out.reserve(t.size() + a1.size() + a2.size());
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] == '%' && i + 1 < t.size() && (t[i + 1] == '1' || t[i + 1] == '2')) {
      out += t[i + 1] == '1' ? a1 : a2;
      ++i;
    } else {
      out += t[i];
    }
  }
  return out;
}

std::string countText(const Messages& messages, long n, MessageKey one, MessageKey many) {
  return messages.format(n == 1 ? one : many, std::to_string(n));
}

}  // namespace korvane
