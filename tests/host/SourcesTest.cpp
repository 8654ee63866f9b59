// Sources of delays, edges and sound, and what is said of their samples.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "examples/host/EdgeSource.h"
#include "examples/host/SoundSource.h"
#include "examples/host/Summary.h"
#include "examples/host/TimerSource.h"
#include "sparlow/data/SourceData.h"
#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

TEST(TimerSource, MeasuresDelaysForItsTime) {
  TimerSource source(std::chrono::microseconds(500), 0.2);
  const Samples delays = ReadAll(source);
  ASSERT_FALSE(delays.empty());
  EXPECT_EQ(source.Progress(), 1.0);
  double lastTick = 0.0;
  for (const Sample& delay : delays) {
    ASSERT_GE(delay.y, 0.0);
    // Every wake-up belongs to a tick of its own, a multiple of the period.
    const double tick = delay.x - delay.y;
    ASSERT_NEAR(std::remainder(tick, 500e-6), 0.0, 1e-9);
    ASSERT_GT(tick, lastTick + 400e-6);
    lastTick = tick;
  }
}

TEST(TimerSource, ComesBackFromALongSleepWhenItIsStopped) {
  TimerSource source(std::chrono::hours(1), std::nullopt);
  Samples block;
  EXPECT_TRUE(source.Next(block, std::stop_token()));
  EXPECT_TRUE(block.empty());
}

TEST(Summary, TellsRanksOfDelaysInMicrosecondsAndTheReachOfASeries) {
  SourceData series;
  series.Init("s");
  EXPECT_EQ(DescribeDelays(series.Read()), "0 samples");
  // 1 to 200 microseconds, in mixed order.
  for (int i = 0; i < 200; ++i)
    series.Add(std::max(i, 1) * 0.5, (i * 77 % 200 + 1) * 1e-6);
  EXPECT_EQ(DescribeDelays(series.Read()),
            "200 samples in 99.5 s: delay min 1, median 100, 99th percentile 198, max 200 us; "
            "2 samples/s");
  EXPECT_EQ(DescribeSeries(series), "s: 200 samples, x 0.5 to 99.5, y 1e-06 to 0.0002");
  series.Term();
}

Samples edgesOf(std::vector<double> values, std::optional<double> level) {
  EdgeSource edges(std::make_unique<ListSource>(std::move(values)), level);
  return ReadAll(edges);
}

TEST(EdgeSource, FindsCrossingsBetweenSamplesWithTheirDirection) {
  // Rises at 0.25, falls at 3.5, rises at 7.75; the median is 0 too.
  const std::vector<double> values = {-1, 3, 2, 1, -1, -2, -3, -3, 1, 1};
  const Samples edges = {{3.5, 3.25, false}, {7.75, 4.25, true}};
  EXPECT_EQ(edgesOf(values, 0.0), edges);
  EXPECT_EQ(edgesOf(values, std::nullopt), edges);
  EXPECT_TRUE(edgesOf({}, std::nullopt).empty());
}

class SoundSourceTest : public testing::Test {
 protected:
  std::string At(const char* name) { return folder.filePath(QLatin1String(name)).toStdString(); }
  /// 8000 frames in a second, of which the second channel is nobody's matter.
  void Write(const char* name, int format, const std::vector<float>& first) {
    SF_INFO info{};
    info.samplerate = 8000;
    info.channels = 2;
    info.format = format;
    SNDFILE* const file = sf_open(At(name).c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr);
    for (const float value : first) {
      const float frame[] = {value, 0.9f};
      sf_writef_float(file, frame, 1);
    }
    sf_close(file);
  }
  /// What of it can be read, when just this is told of it.
  Samples Read(const char* name, const std::string& told) {
    std::ostringstream out;
    ErrorLog log(out);
    SoundSource source(At(name), "", log);
    const bool open = source.Open();
    const Samples samples = open ? ReadAll(source) : Samples();
    EXPECT_EQ(out.str(), told.empty() ? "" : "sparlow-host: " + At(name) + ": " + told + "\n");
    return samples;
  }

  QTemporaryDir folder;
};

TEST_F(SoundSourceTest, GivesTheFirstChannelInSecondsAndFullScale) {
  std::vector<float> wave(100'000);
  for (std::size_t i = 0; i < wave.size(); ++i)
    wave[i] = std::sin(static_cast<float>(i) * 0.01f) * 0.5f;
  Write("b.FLAC", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, wave);
  EXPECT_TRUE(SoundSource::IsSound(At("b.FLAC")));
  const Samples samples = Read("b.FLAC", "");
  ASSERT_EQ(samples.size(), wave.size());
  for (std::size_t i = 0; i < wave.size(); ++i) {
    ASSERT_DOUBLE_EQ(samples[i].x, static_cast<double>(i) / 8000);
    ASSERT_NEAR(samples[i].y, wave[i], 1e-4);
  }
}

TEST_F(SoundSourceTest, TellsWhatIsWrongAndKeepsWhatIsGood) {
  const int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
  Write("nan.wav", format, {0.25f, std::nanf(""), 0.5f});
  EXPECT_EQ(Read("nan.wav", "sample 2: not a finite number, skipped\nsparlow-host: " +
                                At("nan.wav") + ": 1 sample skipped: not a finite number"),
            (Samples{{0, 0.25}, {2.0 / 8000, 0.5}}));
  Write("cut.wav", format, std::vector<float>(1000, 0.5f));
  std::filesystem::resize_file(At("cut.wav"), std::filesystem::file_size(At("cut.wav")) - 4000);
  EXPECT_EQ(Read("cut.wav", "the file is cut off after sample 500").size(), 500u);
  EXPECT_EQ(Read("nosuch.wav", "No such file or directory"), Samples());
}

}  // namespace
}  // namespace sparlow::host
