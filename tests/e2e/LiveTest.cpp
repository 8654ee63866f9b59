// The window while data come.

#include "examples/host/TimerSource.h"
#include "sparlow/graph/GraphColors.h"
#include "tests/e2e/ScreenTest.h"

namespace sparlow::host {
namespace {

class Live : public ScreenTest {};

TEST_F(Live, TheGraphFollowsAWindowThatChangesItsSize) {
  Sources sources;
  sources.push_back(std::make_unique<TimerSource>(std::chrono::microseconds(200), std::nullopt));
  Run(std::move(sources), HostOptions::Job::measure, [this] {
    const QString window = InHost([this] { return QString::number(Widget()->window()->winId()); });
    unsigned size = 0;
    for (int round = 0; round < 6; ++round) {
      const QSize wanted(round % 2 ? 950 : 620, 420 + 30 * round);
      for (int step = 8; step >= 0; --step)
        Do(QString("windowsize %1 %2 %3")
               .arg(window)
               .arg(wanted.width() + 7 * step)
               .arg(wanted.height() + 3 * step));
      Await("the size", [&] { return Widget()->window()->size() == wanted; });
      Await("a frame that reaches to the new right edge", [this] {
        const QPoint edge = PlotOrigin() + QPoint(PlotSize().width(), PlotSize().height() / 2);
        return !Tab().View().RenderDue() && Shows(edge, GraphColors(0).frame);
      });
      Await("more samples, on show too", [&] {
        const SampleReader samples = Source().Series().Read();
        const bool more = samples.size() > size + 200;
        if (more)
          size = samples.size();
        return more && Look().xMax > samples.x(size - 1) - 0.5;
      });
    }
    Picture("8-resized");
    Close();
  });
}

}  // namespace
}  // namespace sparlow::host
