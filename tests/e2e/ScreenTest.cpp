#include "tests/e2e/ScreenTest.h"

#include <QLabel>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "examples/host/FileSource.h"
#include "sparlow/graph/Offset.h"

namespace sparlow::host {

namespace {

constexpr int kSamples = 10001;

}  // namespace

void ScreenTest::Run(Sources sources, HostOptions::Job job, const Act& person, ViewKind view) {
  int argc = 1;
  char name[] = "e2e_tests";
  char* argv[] = {name, nullptr};
  qt::Application application(argc, argv);
  HostOptions options;
  options.job = job;
  options.view = view;
  options.width = 800;
  options.height = 450;
  ErrorLog log(std::cerr);
  const std::sig_atomic_t interrupts = 0;
  Session session(application, options, log, interrupts);
  for (auto& source : sources)
    session.Add(std::move(source));
  session_ = &session;
  std::promise<void> ended;
  std::thread acting([&] {
    try {
      Await("the window is the active one and shows samples",
            [this] { return Widget()->isActiveWindow() && Tab().View().DataValid(); });
      person();
      if (ended.get_future().wait_for(kDeadline) != std::future_status::ready)
        throw std::runtime_error("the closed window doesn't end the host");
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
      application.Quit();
    }
  });
  session.Run();
  ended.set_value();
  acting.join();
  session_ = nullptr;
  EXPECT_TRUE(session.AnySamples());
  EXPECT_EQ(log.Count(), 0) << log.Last();
}

void ScreenTest::RunFiles(const std::vector<Curve>& curves, const Act& person, ViewKind view) {
  const QTemporaryDir folder;
  ErrorLog log(std::cerr);
  Sources sources;
  for (const Curve curve : curves) {
    const std::string name = "known samples " + std::to_string(sources.size() + 1);
    const std::string path = folder.filePath(QString::fromStdString(name)).toStdString();
    std::ofstream file(path);
    for (int i = 0; i < kSamples; ++i)
      file << i * 0.001 << ' ' << curve(i * 0.001) << '\n';
    file.close();
    auto source = std::make_unique<FileSource>(path, std::nullopt, "V", log);
    ASSERT_TRUE(source->Open());
    sources.push_back(std::move(source));
  }
  const auto whenRead = [&] {
    // The last update of the host would end a gesture.
    Await("the files are read and said to be", [this] {
      return Source().Settled() && Tab().Settled() && Label("status").startsWith("finished");
    });
    person();
  };
  Run(std::move(sources), HostOptions::Job::files, whenRead, view);
  EXPECT_EQ(log.Count(), 0) << log.Last();
}

void ScreenTest::RunKnownFile(const Act& person) {
  RunFiles({[](double x) { return x * x / 10; }}, person);
}

void ScreenTest::Await(const char* what, const std::function<bool()>& holds) {
  const auto end = std::chrono::steady_clock::now() + kDeadline;
  while (!InHost(holds)) {
    if (std::chrono::steady_clock::now() > end) {
      Picture(QString("failed-") + testing::UnitTest::GetInstance()->current_test_info()->name());
      throw std::runtime_error(std::string("never seen: ") + what);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

Shown ScreenTest::Settled() {
  Await("the graph is drawn", [this] { return !Tab().View().RenderDue(); });
  return InHost([this] { return Look(); });
}

void ScreenTest::Do(const QString& commands) {
  EXPECT_EQ(QProcess::execute("xdotool", QProcess::splitCommand(commands)), 0)
      << commands.toStdString();
}

QString ScreenTest::To(QPoint onScreen) {
  return QString("mousemove %1 %2 ").arg(onScreen.x()).arg(onScreen.y());
}

QString ScreenTest::To(double right, double down) {
  return To(InHost([=, this] {
    const QPointF inPlot(right * PlotSize().width(), down * PlotSize().height());
    return Widget()->viewport()->mapToGlobal(PlotOrigin() + inPlot.toPoint());
  }));
}

void ScreenTest::Drag(const QString& from, const QString& to) {
  // In two moves, as a hand does it.
  Do(from + "mousedown 1 sleep 0.1 mousemove_relative 3 3 sleep 0.1 " + to + "sleep 0.1");
}

QString ScreenTest::Label(const char* name) {
  const auto* const label = Widget()->window()->findChild<QLabel*>(name);
  return label ? label->text() : QString("no such label");
}

void ScreenTest::Picture(const QString& name) {
  const QString path = qEnvironmentVariable("E2E_PICTURES", ".") + "/" + name + ".png";
  EXPECT_TRUE(InHost([&] { return qApp->primaryScreen()->grabWindow(0).save(path); }))
      << path.toStdString();
}

QAbstractScrollArea* ScreenTest::Widget() {
  return qobject_cast<QAbstractScrollArea*>(qt::WidgetOf(Tab().View()));
}

QPoint ScreenTest::PlotOrigin() {
  return {Offset::Left(Tab().Axis().ver.maxLabelLength), Offset::Top()};
}

QSize ScreenTest::PlotSize() {
  const QPoint origin = PlotOrigin();
  return Widget()->viewport()->size() -
         QSize(origin.x() + Offset::Right(), origin.y() + Offset::Bottom());
}

Shown ScreenTest::Look() {
  const ViewData& series = Source().Series();
  const GraphAxis& axis = Tab().Axis();
  return {series.GetSize(),  series.GetFrom(),  series.GetTo(),
          series.iLCursor,   series.iRCursor,   axis.hor.GetMin(),
          axis.hor.GetMax(), axis.ver.GetMin(), axis.ver.GetMax()};
}

}  // namespace sparlow::host

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
