// Sources of edges, and of sound files.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cmath>
#include <filesystem>
#include <limits>
#include <sstream>
#include <utility>

#include "examples/host/EdgeSource.h"
#include "examples/host/SoundSource.h"

namespace sparlow::host {

namespace {

/// Gives a list of values, one a second, in blocks of 7.
class ListSource : public SampleSource {
 public:
  explicit ListSource(std::vector<double> values) : values_(std::move(values)) {}
  std::string Name() const override { return "list"; }
  std::string Unit() const override { return "V"; }
  std::string Activity() const override { return ""; }
  bool Next(std::vector<Sample>& block, const std::stop_token&) override {
    block.clear();
    for (; block.size() < 7 && at_ < values_.size(); ++at_)
      block.push_back({static_cast<double>(at_), values_[at_]});
    return at_ < values_.size();
  }
  double Progress() const override { return -1.0; }

 private:
  const std::vector<double> values_;
  std::size_t at_ = 0;
};

std::vector<Sample> readAll(SampleSource& source) {
  std::vector<Sample> all;
  std::vector<Sample> block;
  for (bool more = true; more;) {
    more = source.Next(block, std::stop_token());
    all.insert(all.end(), block.begin(), block.end());
  }
  return all;
}

std::vector<Sample> edgesOf(std::vector<double> values, std::optional<double> level) {
  EdgeSource edges(std::make_unique<ListSource>(std::move(values)), level);
  return readAll(edges);
}

TEST(EdgeSource, FindsCrossingsBetweenSamplesWithTheirDirection) {
  // Rises at 0.25, falls at 3.5, rises at 7.75; the median is 0 too.
  const std::vector<double> values = {-1, 3, 2, 1, -1, -2, -3, -3, 1, 1};
  const std::vector<Sample> edges = {{3.5, 3.25, false}, {7.75, 4.25, true}};
  EXPECT_EQ(edgesOf(values, 0.0), edges);
  EXPECT_EQ(edgesOf(values, std::nullopt), edges);
  EXPECT_EQ(edgesOf(values, -2.5), (std::vector<Sample>{{7.125, 1.625, true}}));
  EXPECT_TRUE(edgesOf({}, std::nullopt).empty());
  EXPECT_TRUE(edgesOf({0, 0, 0, 1}, std::nullopt).empty()) << "the first edge has none before it";
}

TEST(EdgeSource, IsFullWithWhatAWaveformHolds) {
  std::vector<double> values;
  for (int i = 0; i < 20'000; ++i)
    values.push_back(i % 2);
  const std::vector<Sample> edges = edgesOf(values, std::nullopt);
  ASSERT_EQ(edges.size(), 8192u);
  EXPECT_EQ(edges.back().y, 1.0);
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
  /// What of it can be read; what is told without the folder's name goes to told.
  std::vector<Sample> Read(const char* name) {
    std::ostringstream out;
    ErrorLog log(out);
    SoundSource source(At(name), "", log);
    const std::vector<Sample> samples = source.Open() ? readAll(source) : std::vector<Sample>();
    told = out.str();
    const std::string path = folder.path().toStdString() + "/";
    for (std::size_t at; (at = told.find(path)) != std::string::npos;)
      told.erase(at, path.size());
    return samples;
  }

  QTemporaryDir folder;
  std::string told;
};

TEST_F(SoundSourceTest, GivesTheFirstChannelInSecondsAndFullScale) {
  std::vector<float> wave(100'000);
  for (std::size_t i = 0; i < wave.size(); ++i)
    wave[i] = std::sin(static_cast<float>(i) * 0.01f) * 0.5f;
  for (const auto& [name, format] : {std::pair{"a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
                                     std::pair{"b.FLAC", SF_FORMAT_FLAC | SF_FORMAT_PCM_16}}) {
    Write(name, format, wave);
    EXPECT_TRUE(SoundSource::IsSound(At(name)));
    const std::vector<Sample> samples = Read(name);
    EXPECT_EQ(told, "");
    ASSERT_EQ(samples.size(), wave.size());
    for (std::size_t i = 0; i < wave.size(); ++i) {
      ASSERT_DOUBLE_EQ(samples[i].x, static_cast<double>(i) / 8000);
      ASSERT_NEAR(samples[i].y, wave[i], 1e-4);
    }
  }
  EXPECT_FALSE(SoundSource::IsSound("wav"));
}

TEST_F(SoundSourceTest, TellsWhatIsWrongAndKeepsWhatIsGood) {
  const int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
  Write("nan.wav", format, {0.25f, std::nanf(""), std::numeric_limits<float>::infinity(), 0.5f});
  EXPECT_EQ(Read("nan.wav"), (std::vector<Sample>{{0, 0.25}, {3.0 / 8000, 0.5}}));
  EXPECT_EQ(told,
            "sparlow-host: nan.wav: sample 2: not a finite number, skipped\n"
            "sparlow-host: nan.wav: 2 samples skipped: not a finite number\n");

  Write("cut.wav", format, std::vector<float>(1000, 0.5f));
  std::filesystem::resize_file(At("cut.wav"), std::filesystem::file_size(At("cut.wav")) - 4000);
  EXPECT_EQ(Read("cut.wav").size(), 500u);
  EXPECT_EQ(told, "sparlow-host: cut.wav: the file is cut off after sample 500\n");

  Write("empty.wav", format, {});
  EXPECT_TRUE(Read("empty.wav").empty());
  EXPECT_EQ(told, "sparlow-host: empty.wav: no samples\n");

  Read("nosuch.wav");
  EXPECT_EQ(told, "sparlow-host: nosuch.wav: No such file or directory\n");
  std::filesystem::resize_file(At("cut.wav"), 10);
  EXPECT_TRUE(Read("cut.wav").empty());
  EXPECT_TRUE(told.starts_with("sparlow-host: cut.wav: ")) << told;
}

}  // namespace

}  // namespace sparlow::host
