// The measurement host without a display: options, exit statuses, messages and pictures.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <regex>
#include <stdexcept>

#include "examples/host/HostOptions.h"

namespace sparlow::host {
namespace {

class CommandLine : public testing::Test {
 protected:
  CommandLine() { host.setWorkingDirectory(folder.path()); }

  void Start(const QStringList& arguments) {
    host.start(SPARLOW_HOST, arguments);
    ASSERT_TRUE(host.waitForStarted());
  }
  void ExpectEnd(int status, const std::string& errors) {
    ASSERT_TRUE(host.waitForFinished(120'000));
    EXPECT_EQ(host.exitCode(), status);
    EXPECT_EQ(host.readAllStandardError().toStdString(), errors);
  }
  void Expect(const QStringList& arguments, int status, const std::string& errors) {
    ASSERT_NO_FATAL_FAILURE(Start(arguments));
    ExpectEnd(status, errors);
  }
  void ExpectOutput(const std::string& pattern) {
    const std::string output = host.readAllStandardOutput().toStdString();
    EXPECT_TRUE(std::regex_search(output, std::regex(pattern))) << output;
  }
  void Write(const char* name, const QByteArray& text) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    EXPECT_EQ(file.write(text), text.size());
  }
  /// Pixels of a colour in a picture.
  int Count(const char* name, QRgb color) {
    const QImage picture(folder.filePath(name));
    int count = 0;
    for (int i = 0; i < picture.width() * picture.height(); ++i)
      count += picture.pixel(i % picture.width(), i / picture.width()) == color;
    return count;
  }
  std::string Pictures(const char* in = "pictures") {
    return QDir(folder.filePath(in)).entryList(QDir::Files).join(' ').toStdString();
  }

  QTemporaryDir folder;
  QProcess host;
};

TEST_F(CommandLine, AMeasurementLeavesThreePictures) {
  Expect({"--seconds", "2", "--scheme", "1", "--size", "500x300", "--pictures", "deep/down"}, 0,
         "");
  ExpectOutput(
      R"(^\d+ samples in 2(\.0\d+)? s: delay min [\d.e-]+, median [\d.e-]+, 99th percentile )"
      R"([\d.]+, max [\d.]+ us; [\d.]+ samples/s\n)"
      R"(pictures: deep/down/early.png deep/down/midway.png deep/down/finished.png\n$)");
  for (const char* const name : {"early", "midway", "finished"}) {
    const QImage picture(folder.filePath("deep/down/%1.png").arg(name));
    EXPECT_EQ(picture.size(), QSize(500, 300));
  }
}

TEST_F(CommandLine, EachFileIsShownOrSaidToBeBad) {
  Write("a b.txt", "# x y\n0 1\n1 2\n2 1\n");
  Write("c", "0,5\n1,6\n");
  Write("word", "0 1\n1 two\n");
  Expect({"a b.txt", "nosuch", "c", "word", "--pictures=some"}, 1,
         "sparlow-host: nosuch: No such file or directory\n"
         "sparlow-host: word:2: 'two' is not a number\n");
  ExpectOutput("a b.txt: 3 samples, x 0 to 2, y 1 to 2\nc: 2 samples");
  EXPECT_EQ(Pictures("some"), "finished-1.png finished-2.png finished-3.png");
}

TEST_F(CommandLine, MasksAnalysesAndAPageAreLeftByTheEnd) {
  QByteArray record;
  for (int i = 0; i < 1000; ++i)
    record += QByteArray::number(i) + (i % 2 ? " 1\n" : " -1\n");
  Write("noise", record);
  Expect({"noise", "--view", "masks", "--mask", "+3", "--mask", "-2", "--pdf", "page.pdf",
          "--pictures", "pictures"},
         0, "");
  ExpectOutput("printed: page.pdf\n");
  for (const QRgb mask : {qRgb(0x00, 0xC0, 0xFF), qRgb(0xC6, 0xC6, 0x00)})
    EXPECT_GT(Count("pictures/finished.png", mask), 700) << "no line across the plot";
  QFile page(folder.filePath("page.pdf"));
  EXPECT_TRUE(page.open(QFile::ReadOnly));
  EXPECT_TRUE(page.readAll().startsWith("%PDF"));
  Expect({"noise", "--analyse", "histogram", "--pdf", "noise/page.pdf", "--pictures", "two"}, 1,
         "sparlow-host: noise/page.pdf: the page can't be printed\n");
  EXPECT_EQ(Pictures("two"), "finished-1.png finished-2.png");
}

TEST_F(CommandLine, WithNothingToShowItFailsWithoutPictures) {
  Write("nan", "0 nan\n");
  Expect({"nan"}, 2,
         "sparlow-host: nan:1: not a finite number, skipped\n"
         "sparlow-host: nan: 1 sample skipped: not a finite number\n"
         "sparlow-host: nan: no samples\n");
  Expect({"--bogus"}, 2, "sparlow-host: unknown option '--bogus'; --help lists all\n");
  Expect({"--pictures", "nan/below"}, 2, "sparlow-host: nan/below: Not a directory\n");
  Expect({"--help"}, 0, "");
  ExpectOutput("usage: sparlow-host");
  EXPECT_EQ(Pictures(), "");
}

TEST_F(CommandLine, AnInterruptEndsAMeasurementWithAllThatItLeaves) {
  ASSERT_NO_FATAL_FAILURE(Start({"--seconds", "24"}));
  while (Pictures().empty() && !host.waitForFinished(50)) {
  }
  kill(static_cast<pid_t>(host.processId()), SIGINT);
  ExpectEnd(0, "");
  ExpectOutput(R"(^\d+ samples in )");
  EXPECT_EQ(Pictures(), "early.png finished.png");
}

using Arguments = std::vector<const char*>;

TEST(HostOptions, TakeTheirValuesEitherWay) {
  EXPECT_EQ(ParseOptions(Arguments{"--synthetic", "1.5k"}).samples, 1500u);
  const HostOptions files = ParseOptions(Arguments{"a", "--rate=2.5", "-", "--", "--rate"});
  EXPECT_EQ(files.files, (std::vector<std::string>{"a", "-", "--rate"}));
  EXPECT_EQ(files.rate, 2.5);
  const HostOptions masks =
      ParseOptions(Arguments{"--view=masks", "--mask=average:250", "--paper", "100.5x80"});
  EXPECT_EQ(masks.masks.at(0).average, 250u);
  EXPECT_EQ(masks.paper.width, 100.5);
}

TEST(HostOptions, RefuseWhatTheyCannotTake) {
  // The rate, and a level, are for files and for edges; a mask needs a view that has masks.
  for (const char* const line :
       {"-x", "--period", "--period 9", "--seconds nan", "--rate 10", "--rate=inf f",
        "--size 640x480x2", "--synthetic 5G", "--synthetic=5 f", "--level=1",
        "--pictures=", "--view double", "--mask mean",
        "--view=masks --mask average:", "--paper 2000x2000 --dpi 2400", "--help=me"}) {
    const QByteArrayList words = QByteArray(line).split(' ');
    EXPECT_THROW(ParseOptions(Arguments(words.begin(), words.end())), std::invalid_argument)
        << line;
  }
}

}  // namespace
}  // namespace sparlow::host
