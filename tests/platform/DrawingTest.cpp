// What CDC makes of coordinates, texts and state before a device sees them.

#include <gtest/gtest.h>

#include <limits>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/paint/LineClip.h"
#include "tests/support/RecordingDevice.h"

namespace sparlow {
namespace {

using test::RecordingDevice;
using Calls = RecordingDevice::Calls;

class DrawingTest : public ::testing::Test {
 protected:
  DrawingTest() { dc.SetBkMode(TRANSPARENT); }

  RecordingDevice surface{{200, 100}};
  DeviceContext context{&surface};
  CDC dc{&context};
};

TEST_F(DrawingTest, OriginMovesEverythingButTheClip) {
  CRgn region;
  region.CreateRectRgn(1, 2, 30, 40);
  dc.SelectClipRgn(&region);
  dc.SetViewportOrg(10, 20);
  dc.MoveTo(0, 0);
  dc.LineTo(5, 5);
  dc.LineTo(6, 5);
  dc.FillSolidRect({0, 0, 2, 2}, 0xFF);
  dc.SetROP2(R2_NOTXORPEN);
  dc.Rectangle({0, 0, 9, 9});
  EXPECT_EQ(surface.take(), (Calls{"Line 10,20 15,25 style 0 width 1 color 0x000000 clip 1,2 30,40",
                                   "Line 15,25 16,25 style 0 width 1 color 0x000000 clip 1,2 30,40",
                                   "FillRect 10,20 12,22 color 0x0000FF clip 1,2 30,40",
                                   "Rectangle 10,20 19,29 style 0 width 1 color 0x000000 mix 10 "
                                   "fill 0xFFFFFF clip 1,2 30,40"}));
}

TEST_F(DrawingTest, TextHangsOnItsCell) {
  dc.SetTextAlign(TA_RIGHT | TA_BOTTOM);
  dc.TextOut(100, 50, "abc");
  dc.SetTextAlign(TA_CENTER | TA_TOP);
  dc.TextOut(100, 50, "abcd");
  dc.SetTextAlign(TA_BASELINE);
  dc.TextOut(100, 50, "a\xB0");
  dc.SetTextAlign(TA_RIGHT);
  dc.DrawText("a long name", {0, 0, 50, 15}, DT_SINGLELINE | DT_WORD_ELLIPSIS);
  dc.SetTextAlign(TA_LEFT);
  dc.SetBkMode(OPAQUE);
  dc.TextOut(1, 2, "ab");
  EXPECT_EQ(surface.take(), (Calls{"Text 79,35 \"abc\" height 15 color 0x000000",
                                   "Text 86,50 \"abcd\" height 15 color 0x000000",
                                   "Text 100,38 \"a\xC2\xB0\" height 15 color 0x000000",
                                   "Text 0,0 \"a lo...\" height 15 color 0x000000 clip 0,0 50,15",
                                   "FillRect 1,2 15,17 color 0xFFFFFF",
                                   "Text 1,2 \"ab\" height 15 color 0x000000"}));
}

TEST_F(DrawingTest, CopiesHonourBothOriginsAndReversedEdges) {
  Bitmap bitmap{surface.MakeCompatible({50, 50})};
  const HDC memory = CreateCompatibleDC(&context);
  CDC source(memory);
  source.SelectObject(&bitmap);
  source.SetViewportOrg(5, 5);
  dc.SetViewportOrg(20, 20);
  dc.BitBlt(1, 1, 10, 10, memory, 1, 1, SRCCOPY);
  dc.BitBlt(11, 11, -10, -10, memory, 11, 11, SRCCOPY);
  // Only what both surfaces have.
  dc.BitBlt(-30, 0, 1000, 10, memory, -5, 0, SRCCOPY);
  EXPECT_EQ(surface.take(), (Calls{"Copy 21,21 31,31 from 6,6", "Copy 21,21 31,31 from 6,6",
                                   "Copy 0,20 40,30 from 10,5"}));
  source.SelectObject(HBITMAP{});
  DeleteDC(memory);
}

TEST_F(DrawingTest, AnyCoordinateIsAllowedAndALineKeepsItsCourse) {
  constexpr int most = std::numeric_limits<int>::max();
  constexpr int least = std::numeric_limits<int>::min();
  CPoint from{-40000, 0};
  CPoint to{40000, 8000};
  ASSERT_TRUE(ClipToDeviceLimit(from, to));
  EXPECT_EQ(from, (CPoint{-30000, 1000}));
  EXPECT_EQ(to, (CPoint{30000, 7000}));
  dc.SetViewportOrg(50, 50);
  dc.MoveTo(least, least);
  dc.LineTo(most, most);
  dc.MoveTo(most, 0);
  dc.LineTo(most, most);
  dc.FillSolidRect({least, least, most, most}, 1);
  dc.TextOut(most, least, "far");
  EXPECT_EQ(surface.take(), (Calls{"Line -30000,-30000 30000,30000 style 0 width 1 color 0x000000",
                                   "FillRect -30000,-30000 30000,30000 color 0x000001"}));
}

TEST(Geometry, AScaledNumberIsRoundedAndNeverOverflows) {
  constexpr int most = std::numeric_limits<int>::max();
  const int cases[][4] = {{7, 3, 2, 11},    {-7, 3, 2, -11}, {7, 3, -2, -11},
                          {most, 2, 1, -1}, {1, 1, 0, -1},   {most, most, most, most}};
  for (const auto& [a, b, c, expected] : cases)
    EXPECT_EQ(MulDiv(a, b, c), expected) << a;
}

TEST(Text, BytesThatAreNoUtf8CountAsLatin1) {
  EXPECT_EQ(ToUtf8("20 \xC2\xB0\xE2\x82\xAC"), "20 \xC2\xB0\xE2\x82\xAC");
  EXPECT_EQ(ToUtf8("20 \xB0"), "20 \xC2\xB0");
  EXPECT_EQ(ToUtf8("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
  // Overlong, a surrogate, beyond Unicode, torn: none of these is UTF-8.
  for (const char* bytes : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"})
    EXPECT_NE(ToUtf8(bytes), bytes);
}

}  // namespace
}  // namespace sparlow
