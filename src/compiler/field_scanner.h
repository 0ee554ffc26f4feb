// Splitting texts at commas that stand outside double quotes and parentheses.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// The next field of `text` from `pos`: the text up to the next comma outside
// quotes and parentheses (to the end when there is none). `pos` moves past
// that comma, or to text.size() + 1 when the field reached the end.
// Quotes hide parentheses; an unclosed quote runs to the end of the text; a
// ")" without its "(" is taken as a plain character.
std::string nextField(std::string_view text, std::size_t& pos);
// The same field as a view into `text`.
std::string_view nextFieldView(std::string_view text, std::size_t& pos);

// Position of the "(" that matches the ")" at `close`, scanning backwards and
// counting; npos when there is none.
std::size_t matchingParen(std::string_view text, std::size_t close);

// Whether `pos` lies in the span low..high: kind "[]" both ends included,
// "(]" only high, "[)" only low, anything else neither.
bool inRange(long pos, long low, long high, std::string_view kind);

}  // namespace korvane
