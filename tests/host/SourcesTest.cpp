// Sources of delays, edges and sound, and what is said of their samples.

#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <filesystem>

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

TEST(EdgeSource, FindsCrossingsBetweenSamplesWithTheirDirection) {
  // Rises at 0.25, falls at 3.5, rises at 7.75; the median is 0 too.
  const std::vector<double> values = {-1, 3, 2, 1, -1, -2, -3, -3, 1, 1};
  for (const std::optional<double> level : {std::optional(0.0), {}}) {
    EdgeSource edges(std::make_unique<ListSource>(values), level);
    EXPECT_EQ(ReadAll(edges), (Samples{{3.5, 3.25, false}, {7.75, 4.25, true}}));
  }
}

/// 8000 frames in a second, of which the second channel is nobody's matter.
void writeSound(const std::string& path, int format, const std::vector<float>& first) {
  SF_INFO info{};
  info.samplerate = 8000;
  info.channels = 2;
  info.format = format;
  SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
  ASSERT_NE(file, nullptr);
  for (const float value : first) {
    const float frame[] = {value, 0.9f};
    sf_writef_float(file, frame, 1);
  }
  sf_close(file);
}

TEST(SoundSource, GivesTheFirstChannelAndTellsWhatIsWrongWithIt) {
  const QTemporaryDir folder;
  const auto at = [&](const char* name) {
    return folder.filePath(QLatin1String(name)).toStdString();
  };
  std::vector<float> wave(100'000);
  for (std::size_t i = 0; i < wave.size(); ++i)
    wave[i] = std::sin(static_cast<float>(i) * 0.01f) * 0.5f;
  writeSound(at("b.FLAC"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, wave);
  EXPECT_TRUE(SoundSource::IsSound(at("b.FLAC")));
  const Samples samples = ReadFile<SoundSource>(at("b.FLAC")).samples;
  ASSERT_EQ(samples.size(), wave.size());
  for (std::size_t i = 0; i < wave.size(); ++i) {
    ASSERT_DOUBLE_EQ(samples[i].x, static_cast<double>(i) / 8000);
    ASSERT_NEAR(samples[i].y, wave[i], 1e-4);
  }

  const int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
  writeSound(at("nan.wav"), format, {0.25f, std::nanf(""), 0.5f});
  const Reading bad = ReadFile<SoundSource>(at("nan.wav"));
  EXPECT_EQ(bad.samples, (Samples{{0, 0.25}, {2.0 / 8000, 0.5}}));
  EXPECT_EQ(bad.told, (Lines{": sample 2: not a finite number, skipped",
                             ": 1 sample skipped: not a finite number"}));
  writeSound(at("cut.wav"), format, std::vector<float>(1000, 0.5f));
  std::filesystem::resize_file(at("cut.wav"), std::filesystem::file_size(at("cut.wav")) - 4000);
  const Reading cut = ReadFile<SoundSource>(at("cut.wav"));
  EXPECT_EQ(cut.samples.size(), 500u);
  EXPECT_EQ(cut.told, Lines{": the file is cut off after sample 500"});
  EXPECT_EQ(ReadFile<SoundSource>(at("nosuch.wav")).told, Lines{": No such file or directory"});
}

}  // namespace
}  // namespace sparlow::host
