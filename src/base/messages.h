// User-visible texts, looked up by section and key in the language file.
#pragma once

#include <string>
#include <string_view>

#include "base/message_key.h"

namespace korvane {

class Messages {
 public:
  Messages() = default;
  explicit Messages(std::string languageFile) : file_(std::move(languageFile)) {}

  const std::string& file() const { return file_; }
  // The text, or empty text when the file, section or key is missing.
  std::string text(MessageKey key) const;
  // The text with every "%1" replaced by a1 and every "%2" by a2.
  std::string format(MessageKey key, std::string_view a1 = {}, std::string_view a2 = {}) const;

 private:
  std::string file_;
};

// A count with its noun: the `one` text for 1, the `many` text otherwise.
std::string countText(const Messages& messages, long n, MessageKey one, MessageKey many);

// Replaces every occurrence of `what` in `text` by `by`.
std::string replaceAll(std::string text, std::string_view what, std::string_view by);

}  // namespace korvane
