#include "compiler/extension/text_length.h"

#include <string>

#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {

void checkTextLength(std::size_t length) {
  if (length > kMaxTextLength)
    throw RuntimeFailure(texts::runtime::kTextTooLong, std::to_string(kMaxTextLength));
}

}  // namespace korvane
