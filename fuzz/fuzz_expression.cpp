// The expression evaluator and the line texts built on it: the first byte
// picks evaluation, |...| substitution, the field split or an assignment
// list; the rest is the text. Only the language's own failures may leave.
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/conversions.h"
#include "compiler/expression.h"
#include "compiler/extension/compile_failure.h"
#include "support/project.h"

using namespace korvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static test::Evaluator evaluator;
  if (size == 0) return 0;
  RunContext& ctx = evaluator.ctx;
  ctx.vars.clear();
  std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    switch (data[0] % 4) {
      case 0:
        Evaluate(ctx, std::string_view(text));
        break;
      case 1:
        substituteLine(ctx, text);
        break;
      case 2:
        splitFields(ctx, text);
        break;
      default:
        applyAssignments(ctx, text);
        break;
    }
  } catch (const CompileFailure&) {
  } catch (const conv::ConversionError&) {
  }
  return 0;
}
