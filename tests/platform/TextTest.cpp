#include "sparlow/platform/Text.h"

#include <gtest/gtest.h>

namespace sparlow {
namespace {

TEST(Text, BytesThatAreNoUtf8CountAsLatin1) {
  EXPECT_EQ(ToUtf8("20 \xC2\xB0"), "20 \xC2\xB0");
  EXPECT_EQ(ToUtf8("20 \xB0"), "20 \xC2\xB0");
  EXPECT_EQ(ToUtf8("\xE2\x82\xAC"), "\xE2\x82\xAC");
  // Overlong, a surrogate, beyond Unicode, torn: none of these is UTF-8.
  for (const char* bytes : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"})
    EXPECT_NE(ToUtf8(bytes), bytes);
}

TEST(Text, ACutNeverTearsACharacter) {
  EXPECT_EQ(CutText("abc", 5), "abc");
  EXPECT_EQ(CutText("m\xC2\xB0!", 2), "m");
  EXPECT_EQ(CutText("m\xC2\xB0!", 3), "m\xC2\xB0");
  EXPECT_EQ(CutText("\xE2\x82\xAC", 2), "");
  EXPECT_EQ(CutText("\xB0\xB0\xB0", 2), "\xB0\xB0") << "stray bytes are characters";
}

}  // namespace
}  // namespace sparlow
