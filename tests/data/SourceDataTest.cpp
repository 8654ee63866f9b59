#include <gtest/gtest.h>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

TEST(SourceData, ACopyIsASecondHandleThatKeepsItsSamples) {
  Series s;
  s.fillRamp(10000);
  SourceData copy(s);
  s.Add(10000, 1e6);
  EXPECT_EQ(copy.GetSize(), 10000u);
  copy.Add(20000, 2e4);  // goes behind the sample that the copy hasn't counted
  EXPECT_EQ(copy.yGlobalMax, 2e4);
  EXPECT_EQ(copy.GetSize(), 10002u);
  EXPECT_EQ(copy.xGet(10000), 10000);
  s.Reset();
  s.Add(-1, -1);
  EXPECT_EQ(copy.xGet(9999), 9999);
}

TEST(SourceData, IsHarmlessBeforeInitAndAfterTerm) {
  SourceData s;
  for (const char* name : {"series", static_cast<const char*>(nullptr)}) {
    EXPECT_FALSE(s.Valid());
    EXPECT_FALSE(s.IsAborted());
    EXPECT_FALSE(s.ZoomInByPoint(0, 1, nullptr));
    EXPECT_FALSE(s.ZoomInByCursor());
    EXPECT_FALSE(s.Scroll(1, nullptr));
    s.ScrollTo(4);
    s.ResetInterval(nullptr);
    s.SetIntervalParams();
    s.Set(0, 1, 1);
    s.Term();
    s.Init(name);
    EXPECT_EQ(s.GetSize(), 0u);
    s.Add(1, 1);
    EXPECT_EQ(s.GetSize(), 1u);
    s.Term();
  }
}

}  // namespace
}  // namespace sparlow::test
