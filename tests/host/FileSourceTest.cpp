#include "examples/host/FileSource.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

using Rate = std::optional<double>;

Reading read(std::string_view content, Rate rate = std::nullopt) {
  const std::string path =
      std::filesystem::temp_directory_path() / ("sparlow-host-" + std::to_string(getpid()));
  std::ofstream(path, std::ios::binary) << content;
  const Reading reading = ReadFile<FileSource>(path, rate);
  std::filesystem::remove(path);
  return reading;
}

TEST(FileSource, ReadsColumnsHoweverTheyAreSeparated) {
  for (const char* const content :
       {"1 -2.5\n2 3e-3\n", "1\t-2.5\r\n2\t3e-3\r\n", "1,-2.5\n2,3e-3", "  1 ; -2.5  \n\n+2;3e-3;",
        "\xEF\xBB\xBF# x y\n% more\n;and more\n1 -2.5 # first\n2 3e-3\n", "1 -2.5 9 word\n2 3e-3",
        "t [s], level 1 [V]\n1,\t-2.5\n2,3e-3", "t;y\n1;-2.5\n2;3e-3"}) {
    const Reading reading = read(content);
    EXPECT_EQ(reading.samples, (Samples{{1, -2.5}, {2, 3e-3}})) << content;
    EXPECT_EQ(reading.told, Lines{}) << content;
  }
}

TEST(FileSource, SkipsOrEndsAtWhatIsNoSampleAndTellsIt) {
  const struct {
    std::string content;
    Rate rate;
    Samples samples;
    Lines told;
  } cases[] = {
      {"1 1\n2 inf\nnan 2\n3 1e999\n4 1e-999\n3.5 7\n4 8\n1 9\n",
       {},
       {{1, 1}, {4, 0}, {4, 8}},
       {":2: not a finite number, skipped", ":6: x goes back, skipped",
        ": 3 samples skipped: not a finite number", ": 2 samples skipped: x goes back"}},
      // The time of one column comes from the rate; a sample that is skipped has had its time.
      {"5\n\nnan\n7\n",
       10.0,
       {{0.0, 5}, {0.2, 7}},
       {":3: not a finite number, skipped", ": 1 sample skipped: not a finite number"}},
      {"1 2\n3 x4y\n5 6\n", {}, {{1, 2}}, {":2: 'x4y' is not a number"}},
      {"1 2\n3 \x1b[2J\n", {}, {{1, 2}}, {":2: '?[2J' is not a number"}},
      {"1 2\n3,,4\n", {}, {{1, 2}}, {":2: a column is empty"}},
      {"1 2\n3\n5 6\n", {}, {{1, 2}}, {":2: x without y"}},
      {"1 2\n3\t4,5\n",
       {},
       {{1, 2}},
       {":2: a comma and another separator in one line; decimals need a point"}},
      {"t y\n1 2\nt y\n", {}, {{1, 2}}, {":3: 't' is not a number"}},
      {"1\n2\n", {}, {}, {":1: x without y; a file of one column needs --rate"}},
      {"1 2\n", 10.0, {}, {":1: a second column, and --rate is for files that have one"}},
      {std::string(2 * LineReader::maxLine, '1'),
       {},
       {},
       {":1: a line of more than 65536 characters: this is no text"}},
      {"\xFF\xFE 1 2\n", {}, {}, {":1: looks like UTF-16 text"}},
      {"two\nheads\n1 2\n", {}, {}, {":1: 'two' is not a number"}}};
  for (const auto& c : cases) {
    const Reading reading = read(c.content, c.rate);
    EXPECT_EQ(reading.samples, c.samples) << c.told[0];
    EXPECT_EQ(reading.told, c.told);
  }
}

TEST(FileSource, JoinsLinesAcrossThePiecesThatItReads) {
  std::string content;
  Samples expected;
  for (int i = 0; i < 200'000; ++i) {
    content += std::to_string(i) + " " + std::to_string(i % 1000) + "\n";
    expected.push_back({1.0 * i, 1.0 * (i % 1000)});
  }
  const Reading reading = read(content + "end\n");
  EXPECT_TRUE(reading.samples == expected);
  EXPECT_EQ(reading.told, Lines{":200001: 'end' is not a number"});
}

TEST(FileSource, HandsOverWhatAPipeHasWithoutWaitingForABlockOrALine) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  std::ostringstream told;
  ErrorLog log(told);
  FileSource source("/dev/fd/" + std::to_string(ends[0]), std::nullopt, "V", log);
  EXPECT_TRUE(source.Open());
  const std::pair<std::string, Samples> turns[] = {
      {"1 2\n3", {{1, 2}}}, {"", {}}, {"0 4\n", {{30, 4}}}};
  for (const auto& [text, samples] : turns) {
    Samples block;
    EXPECT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    EXPECT_TRUE(source.Next(block, std::stop_token()));
    EXPECT_EQ(block, samples);
  }
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace sparlow::host
