#include "examples/host/FileSource.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "tests/host/Sources.h"

namespace sparlow::host {
namespace {

using Lines = std::vector<std::string>;

/// What became of a file: its samples, and the lines that were told, without the file's path.
struct Reading {
  Samples samples;
  Lines told;
};

Reading readFile(const std::string& path, std::optional<double> rate) {
  std::ostringstream told;
  ErrorLog log(told);
  Reading result;
  FileSource source(path, rate, "V", log);
  if (source.Open())
    result.samples = ReadAll(source);
  std::istringstream lines(told.str());
  const std::string head = "sparlow-host: " + path;
  for (std::string line; std::getline(lines, line);) {
    EXPECT_TRUE(line.starts_with(head)) << line;
    result.told.push_back(line.substr(std::min(head.size(), line.size())));
  }
  return result;
}

Reading read(std::string_view content, std::optional<double> rate = std::nullopt) {
  const std::string path =
      std::filesystem::temp_directory_path() / ("sparlow-host-" + std::to_string(getpid()));
  std::ofstream(path, std::ios::binary) << content;
  const Reading reading = readFile(path, rate);
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

TEST(FileSource, SkipsSamplesThatAreNoneAndCountsThem) {
  const Reading two = read("1 1\n2 inf\nnan 2\n3 1e999\n4 1e-999\n3.5 7\n4 8\n1 9\n");
  EXPECT_EQ(two.samples, (Samples{{1, 1}, {4, 0}, {4, 8}}));
  EXPECT_EQ(two.told, (Lines{":2: not a finite number, skipped", ":6: x goes back, skipped",
                             ": 3 samples skipped: not a finite number",
                             ": 2 samples skipped: x goes back"}));
  // The time of one column comes from the rate; a sample that is skipped has had its time.
  EXPECT_EQ(read("5\n\nnan\n7\n", 10.0).samples, (Samples{{0.0, 5}, {0.2, 7}}));
}

TEST(FileSource, EndsAtALineThatIsNoSample) {
  const std::pair<const char*, const char*> cases[] = {
      {"1 2\n3 x4y\n5 6\n", ":2: 'x4y' is not a number"},
      {"1 2\n3 \x1b[2J\n", ":2: '?[2J' is not a number"},
      {"1 2\n3,,4\n", ":2: a column is empty"},
      {"1 2\n3\n5 6\n", ":2: x without y"},
      {"1 2\n3\t4,5\n", ":2: a comma and another separator in one line; decimals need a point"},
      {"t y\n1 2\nt y\n", ":3: 't' is not a number"},
  };
  for (const auto& [content, told] : cases) {
    const Reading reading = read(content);
    EXPECT_EQ(reading.samples, (Samples{{1, 2}})) << content;
    EXPECT_EQ(reading.told, Lines{told}) << content;
  }
}

TEST(FileSource, TellsWhyAFileGivesNothing) {
  EXPECT_EQ(read("1\n2\n").told, Lines{":1: x without y; a file of one column needs --rate"});
  EXPECT_EQ(read("1 2\n", 10.0).told,
            Lines{":1: a second column, and --rate is for files that have one"});
  EXPECT_EQ(read(std::string(2 * LineReader::maxLine, '1')).told,
            Lines{":1: a line of more than 65536 characters: this is no text"});
  EXPECT_EQ(read("\xFF\xFE 1 2\n").told, Lines{":1: looks like UTF-16 text"});
  EXPECT_EQ(read("two\nheads\n1 2\n").told, Lines{":1: 'two' is not a number"});
  EXPECT_EQ(readFile("/", {}).told, Lines{": Is a directory"});
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

class FileSourcePipe : public testing::Test {
 protected:
  FileSourcePipe() {
    EXPECT_EQ(pipe(ends), 0);
    source.emplace("/dev/fd/" + std::to_string(ends[0]), std::nullopt, "V", log);
    EXPECT_TRUE(source->Open());
  }
  ~FileSourcePipe() override {
    close(ends[0]);
    close(ends[1]);
  }
  bool Write(std::string_view text) {
    return write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
  }
  bool Next() { return source->Next(block, std::stop_token()); }

  int ends[2];
  std::ostringstream told;
  ErrorLog log{told};
  std::optional<FileSource> source;
  Samples block;
};

TEST_F(FileSourcePipe, IsWaitedForInTurnsThatAStopCanEnd) {
  EXPECT_TRUE(Write("1 2\n3"));
  EXPECT_TRUE(Next());
  EXPECT_EQ(block, (Samples{{1, 2}}));
  EXPECT_TRUE(Next());
  EXPECT_TRUE(block.empty());
  EXPECT_TRUE(Write("0 4\n"));
  EXPECT_TRUE(Next());
  EXPECT_EQ(block, (Samples{{30, 4}}));
}

TEST_F(FileSourcePipe, HandsOverWhatComesAlsoWhenItNeverPauses) {
  std::jthread writer([this](const std::stop_token& stop) {
    while (!stop.stop_requested() && Write("1 2\n"))
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  });
  while (block.empty())
    EXPECT_TRUE(Next());
  EXPECT_LT(block.size(), 10'000u) << "all that a block holds is waited for";
}

}  // namespace
}  // namespace sparlow::host
