// The measurement host without a display: exit statuses, messages and pictures.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <regex>

namespace sparlow::host {

namespace {

class CommandLine : public testing::Test {
 protected:
  CommandLine() { host.setWorkingDirectory(folder.path()); }

  void Start(const QStringList& arguments) { host.start(SPARLOW_HOST, arguments); }
  void ExpectEnd(int status, const std::string& errors) {
    ASSERT_TRUE(host.waitForFinished(120'000));
    EXPECT_EQ(host.exitCode(), status);
    EXPECT_EQ(host.readAllStandardError().toStdString(), errors);
    output = host.readAllStandardOutput().toStdString();
  }
  void Expect(const QStringList& arguments, int status, const std::string& errors) {
    Start(arguments);
    ExpectEnd(status, errors);
  }
  void ExpectOutput(const std::string& pattern) {
    EXPECT_TRUE(std::regex_search(output, std::regex(pattern))) << output;
  }
  void Write(const char* name, const char* text) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(text) >= 0);
  }
  std::string Pictures(const char* in = "pictures") {
    return QDir(folder.filePath(in)).entryList(QDir::Files).join(' ').toStdString();
  }

  QTemporaryDir folder;
  QProcess host;
  std::string output;
};

TEST_F(CommandLine, AMeasurementLeavesThreePictures) {
  Expect({"--seconds", "2", "--scheme", "1", "--size", "500x300", "--pictures", "deep/down"}, 0,
         "");
  ExpectOutput(
      R"(^\d+ samples in 2(\.0\d+)? s: delay min [\d.e-]+, median [\d.e-]+, 99th percentile )"
      R"([\d.]+, max [\d.]+ us; [\d.]+ samples/s\n)"
      R"(pictures: deep/down/early.png deep/down/midway.png deep/down/finished.png\n$)");
  EXPECT_EQ(Pictures("deep/down"), "early.png finished.png midway.png");
  for (const char* const name : {"early", "midway", "finished"}) {
    const QImage picture(folder.filePath("deep/down/%1.png").arg(name));
    EXPECT_EQ(picture.size(), QSize(500, 300));
    // Background, grid, frame and curve.
    EXPECT_GE(picture.convertToFormat(QImage::Format_Indexed8).colorCount(), 4) << name;
  }
}

TEST_F(CommandLine, ALongRecordIsRenderedInItsPicture) {
  Expect({"--synthetic", "300k"}, 0, "");
  ExpectOutput("300000 samples");
  const QImage picture(folder.filePath("pictures/finished.png"));
  EXPECT_EQ(picture.size(), QSize(1000, 600));
  int traced = 0;
  for (int i = 0; i < picture.width() * picture.height(); ++i)
    traced += picture.pixel(i % picture.width(), i / picture.width()) == qRgb(0x50, 0x50, 0x50);
  EXPECT_GT(traced, 20'000) << "the caption alone has 2000 pixels of this colour";
}

TEST_F(CommandLine, EachFileIsShownOrSaidToBeBad) {
  Write("a b.txt", "# x y\n0 1\n1 2\n2 1\n");
  Write("c", "0,5\n1,6\n");
  Expect({"a b.txt", "c"}, 0, "");
  ExpectOutput("a b.txt: 3 samples, x 0 to 2, y 1 to 2\nc: 2 samples");
  EXPECT_EQ(Pictures(), "finished-1.png finished-2.png");

  Write("word", "0 1\n1 two\n");
  Expect({"nosuch", "c", "word", "--pictures=some"}, 1,
         "sparlow-host: nosuch: No such file or directory\n"
         "sparlow-host: word:2: 'two' is not a number\n");
  EXPECT_EQ(Pictures("some"), "finished-1.png finished-2.png");
}

TEST_F(CommandLine, EdgesAreMarkedInTwoColours) {
  QByteArray record;
  for (int i = 0; i < 1000; ++i)
    record += i / 7 % 3 == 0 ? "-1\n" : "1\n";
  Write("steps", record.constData());
  Expect({"steps", "--rate", "1000", "--edges"}, 0, "");
  ExpectOutput("^steps, edges: 94 samples, x 0.0205 to 0.9935, y 0.007 to 0.014\n");
  const QImage picture(folder.filePath("pictures/finished.png"));
  int falling = 0;
  int rising = 0;
  for (int i = 0; i < picture.width() * picture.height(); ++i) {
    const QRgb pixel = picture.pixel(i % picture.width(), i / picture.width());
    falling += pixel == qRgb(0xFF, 0xC0, 0);
    rising += pixel == qRgb(0xFF, 0x20, 0);
  }
  EXPECT_GT(falling, 100);
  EXPECT_GT(rising, 100);
  Write("text.wav", "0 1\n");
  Start({"text.wav"});
  ASSERT_TRUE(host.waitForFinished(120'000));
  EXPECT_EQ(host.exitCode(), 2);
  EXPECT_TRUE(host.readAllStandardError().startsWith("sparlow-host: text.wav: "));
}

TEST_F(CommandLine, WithNothingToShowItFailsWithoutPictures) {
  Write("nan", "0 nan\n");
  Expect({"nosuch"}, 2, "sparlow-host: nosuch: No such file or directory\n");
  Expect({"nan"}, 2,
         "sparlow-host: nan:1: not a finite number, skipped\n"
         "sparlow-host: nan: 1 sample skipped: not a finite number\n"
         "sparlow-host: nan: no samples\n");
  Expect({"--bogus"}, 2, "sparlow-host: unknown option '--bogus'; --help lists all\n");
  Expect({"--seconds", "soon"}, 2,
         "sparlow-host: --seconds: 'soon' is not a number of seconds above 0\n");
  Expect({"--pictures", "nan/below"}, 2, "sparlow-host: nan/below: Not a directory\n");
  Expect({"--help"}, 0, "");
  ExpectOutput("usage: sparlow-host");
  Expect({"--version"}, 0, "");
  ExpectOutput(R"(^sparlow-host \d+\.\d+\.\d+\n$)");
  EXPECT_EQ(Pictures(), "");
}

TEST_F(CommandLine, AnInterruptEndsAMeasurementWithAllThatItLeaves) {
  Start({"--seconds", "24"});
  while (Pictures().empty() && !host.waitForFinished(50)) {
  }
  kill(static_cast<pid_t>(host.processId()), SIGINT);
  ExpectEnd(0, "");
  ExpectOutput(R"(^\d+ samples in )");
  EXPECT_EQ(Pictures(), "early.png finished.png");
}

}  // namespace

}  // namespace sparlow::host
