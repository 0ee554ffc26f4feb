#include "base/codepage.h"

#include <gtest/gtest.h>

namespace korvane::test {
namespace {

TEST(CodePage, HungarianLettersChangeCase) {
  // "ÁÉÍÓÖŐÚÜŰ" in Windows-1250
  const std::string upperHu = "\xC1\xC9\xCD\xD3\xD6\xD5\xDA\xDC\xDB";
  const std::string lowerHu = "\xE1\xE9\xED\xF3\xF6\xF5\xFA\xFC\xFB";
  EXPECT_EQ(cp::lower(upperHu), lowerHu);
  EXPECT_EQ(cp::upper(lowerHu), upperHu);
  EXPECT_EQ(cp::lower("MiX 12"), "mix 12");
  EXPECT_EQ(cp::toLower('\xD7'), '\xD7');  // multiplication sign has no case
  EXPECT_TRUE(cp::equalsIgnoreCase("\xC1rok", "\xE1ROK"));
}

TEST(CodePage, Utf8RoundTrip) {
  const std::string cp1250 = "\xE1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3g\xE9p";
  const std::string utf8 = cp::toUtf8(cp1250);
  EXPECT_EQ(utf8, "árvíztűrő tükörfúrógép");
  EXPECT_EQ(cp::fromUtf8(utf8), cp1250);
  EXPECT_TRUE(cp::looksLikeUtf8(utf8));
  EXPECT_FALSE(cp::looksLikeUtf8(cp1250));
  EXPECT_EQ(cp::fromUtf8("\xE2\x82\xAC \xE4\xB8\xAD"), "\x80 ?");  // euro maps, CJK does not
}

}  // namespace
}  // namespace korvane::test
