#include "bench/Screen.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <cstdlib>

#include "bench/Report.h"
#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::bench {

/// Counts the paints of the widget that show a graph.
class Screen::PaintWatch : public QObject {
 public:
  explicit PaintWatch(Screen& screen) : screen_(screen) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && !screen_.view_->RenderDue())
      ++screen_.frames_;
    return false;
  }

 private:
  Screen& screen_;
};

qt::Application& TheApplication() {
  static int argc = 1;
  static char name[] = "bench_screen";
  static char* argv[] = {name, nullptr};
  // For ever: at the end of the program Qt's own objects are gone before it.
  static auto& application = *new qt::Application(argc, argv);
  return application;
}

Screen::Screen(ViewData& series) {
  TheApplication();
  view_ = new ScreenView;
  view_->Create();
  view_->CreateGraph(&axis_);
  view_->AddViewData(&series);
  view_->SetActive(true);
  qt::Resize(*view_, kWindow.cx, kWindow.cy);
  view_->ShowWindow(true);
  series.ResetInterval(&axis_.hor);
  series.ResetCursor();
  view_->UpdateGraph();
  Await([this] { return !view_->RenderDue(); });
  TheApplication().ProcessEvents();
  auto& window = dynamic_cast<qt::QtWindow&>(*view_->GetPeer());
  watch_ = std::make_unique<PaintWatch>(*this);
  window.Widget()->viewport()->installEventFilter(watch_.get());
}

Screen::~Screen() {
  watch_.reset();
  view_->DestroyWindow();
}

void Screen::Await(const std::function<bool()>& holds) {
  while (!holds())
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

double Screen::Frame(const std::function<void()>& action) {
  const auto site = WindowSite::Find(view_->GetSafeHwnd());
  const unsigned before = frames_;
  const double start = NowMs();
  action();
  if (!site->IsInvalid() && !view_->RenderDue() && before == frames_)
    return -1.0;
  Await([&] { return frames_ != before && !site->IsInvalid() && !view_->RenderDue(); });
  return NowMs() - start;
}

}  // namespace sparlow::bench
