#include <QApplication>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <thread>

#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/sparlow.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

using QtWindowTest = QtTest;

TEST_F(QtWindowTest, AnExposeCopiesTheSurfaceAndPaintsNothing) {
  // Painting outside a paint.
  const HDC hdc = GetDC(window);
  CDC dc(hdc);
  dc.FillSolidRect({10, 10, 33, 27}, RGB(10, 200, 30));
  dc.TextOut(20, 30, "27.5");
  ReleaseDC(window, hdc);
  QWidget* const widget = qt::WidgetOf(*view);
  const QImage screen = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage& surface = dynamic_cast<qt::QtWindow&>(*view->GetPeer()).Pixels().Image();
  EXPECT_EQ(screen.copy(surface.rect()), surface);
  EXPECT_EQ(surface.width(), qRound(80 * widget->devicePixelRatioF()));
  widget->hide();
  widget->show();
  widget->update();
  app->ProcessEvents();
  EXPECT_EQ(view->draws, 0);
  RedrawWindow(window);
  const QTemporaryDir directory;
  EXPECT_TRUE(qt::SavePicture(*view, directory.filePath("now.png").toStdString()));
  EXPECT_EQ(view->draws, 1);
}

TEST_F(QtWindowTest, AScrollBarChangesTheClientAreaBeforeTheCallReturns) {
  for (const bool shown : {true, false}) {
    view->ShowWindow(shown);
    qt::Resize(*view, 200, 150);
    view->sizes.clear();
    ShowScrollBar(window, SB_HORZ, true);
    const CSize with = view->ClientSize();
    EXPECT_EQ(with.cx, 200);
    EXPECT_LT(with.cy, 150);
    EXPECT_EQ(view->sizes, std::vector<CSize>{with});
    // What is asked for is the client area, with the bar outside it.
    qt::Resize(*view, 180, 140);
    EXPECT_EQ(view->ClientSize(), (CSize{180, 140}));
    ShowScrollBar(window, SB_BOTH, false);
    EXPECT_GT(view->ClientSize().cy, 140);
  }
}

TEST_F(QtWindowTest, AWindowEndsWithItsQtParent) {
  auto* const parent = new QWidget;
  qt::WidgetOf(*view)->setParent(parent);
  int destroys = 0;
  view->onMessage = [&](UINT message, WPARAM) {
    destroys += message == WM_DESTROY;
    // The surface outlives the widget.
    if (const HDC hdc = GetDC(window)) {
      CDC(hdc).FillSolidRect({0, 0, 80, 60}, 0);
      ReleaseDC(window, hdc);
    }
  };
  qt::WidgetOf(*view)->close();
  EXPECT_FALSE(deleted) << "closed with the window that it is in";
  delete parent;
  EXPECT_TRUE(deleted);
  EXPECT_EQ(destroys, 1);
  EXPECT_FALSE(RedrawWindow(window));
}

TEST_F(QtWindowTest, AWindowEndsWhenItsUserClosesIt) {
  qt::WidgetOf(*view)->close();
  EXPECT_TRUE(deleted);
}

TEST_F(QtWindowTest, APosterThatNeverStopsStarvesNobody) {
  view->onMessage = [&](UINT message, WPARAM) {
    if (message == WM_USER)
      PostMessage(window, WM_USER, 0, 0);
  };
  PostMessage(window, WM_USER, 0, 0);
  // Timers and paints must come through; otherwise the loop never ends.
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    RedrawWindow(window);
    if (view->draws >= 2)
      app->Quit();
  });
  timer.start(1);
  EXPECT_EQ(app->Exec(), 0);
}

TEST_F(QtWindowTest, ABoxThatRunsALoopInAWaitForALockServesNothingElse) {
  CMutex mutex;
  Event locked;
  bool waiting = true;
  bool early = false;
  UiThread::SetBoxHandler([&](const BoxRequest&) {
    PostMessage(window, WM_USER, 0, 0);
    RedrawWindow(window);
    app->ProcessEvents();
    return IDOK;
  });
  view->onDraw = [&](CDC&) { early |= waiting; };
  view->onMessage = [&](UINT message, WPARAM) {
    early |= waiting;
    if (message == WM_USER)
      app->Quit();
  };
  std::thread worker([&] {
    const CSingleLock lock(&mutex);
    locked.Set();
    EXPECT_EQ(AfxMessageBox("disk full"), IDOK);
  });
  EXPECT_TRUE(locked.Wait(std::chrono::hours(1)));
  mutex.Lock();
  waiting = false;
  mutex.Unlock();
  worker.join();
  EXPECT_FALSE(early);
  app->Exec();
  app->ProcessEvents();
  EXPECT_GE(view->draws, 1);
  UiThread::SetBoxHandler(nullptr);
}

TEST(QtApplication, TakesItsWindowsAlongAndLeavesTheHostItsOwn) {
  const auto endsWindows = [] {
    bool deleted = false;
    ProbeView::Shown(30, 30)->deleted = &deleted;
    app.reset();
    return deleted;
  };
  EXPECT_TRUE(endsWindows());
  EXPECT_FALSE(QCoreApplication::instance());
  {
    int argc = 0;
    QApplication host(argc, nullptr);
    StartApp();
    EXPECT_TRUE(endsWindows());
    EXPECT_EQ(QCoreApplication::instance(), &host);
  }
  StartApp();
}

}  // namespace
}  // namespace sparlow::test
