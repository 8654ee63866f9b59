#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <filesystem>

#include "sparlow/platform/Windows.h"
#include "sparlow/platform/qt/ImageDevice.h"
#include "sparlow/platform/qt/QtWindow.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

const QImage& pixelsOf(const CWnd& window) {
  return dynamic_cast<qt::QtWindow&>(*window.GetPeer()).Pixels().Image();
}

CSize clientSize(const CWnd& window) {
  CRect client;
  GetClientRect(window.GetSafeHwnd(), &client);
  return {client.Width(), client.Height()};
}

TEST(QtWindowTest, AnExposeCopiesTheSurfaceAndPaintsNothing) {
  ProbeView* const view = ProbeView::Shown(83, 61);
  // Painting outside a paint.
  const HDC hdc = GetDC(view->GetSafeHwnd());
  CDC dc(hdc);
  dc.FillSolidRect({10, 10, 33, 27}, RGB(10, 200, 30));
  dc.TextOut(20, 30, "27.5");
  ReleaseDC(view->GetSafeHwnd(), hdc);
  App().ProcessEvents();
  QWidget* const widget = qt::WidgetOf(*view);
  ASSERT_TRUE(widget);
  const QImage screen = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage& surface = pixelsOf(*view);
  EXPECT_EQ(screen.copy(surface.rect()), surface.copy(screen.rect()).copy(surface.rect()));
  EXPECT_EQ(surface.width(), qRound(83 * widget->devicePixelRatioF()));
  widget->hide();
  widget->show();
  widget->update();
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 0);
  view->DestroyWindow();
}

TEST(QtWindowTest, AChangeOfSizeMakesANewSurfaceAndPaints) {
  ProbeView* const view = ProbeView::Shown(80, 60);
  HDC hdc = GetDC(view->GetSafeHwnd());
  qt::Resize(*view, 120, 90);
  EXPECT_EQ(view->got, std::vector<UINT>{WM_SIZE});
  EXPECT_EQ(view->sizes, (std::vector<CSize>{{120, 90}}));
  // A context from before goes on, on the new surface.
  CDC(hdc).FillSolidRect({110, 80, 120, 90}, RGB(1, 2, 3));
  EXPECT_EQ(CDC(hdc).GetPixel({115, 85}), RGB(1, 2, 3));
  EXPECT_EQ(CDC(hdc).GetPixel({5, 5}), RGB(255, 255, 255));
  ReleaseDC(view->GetSafeHwnd(), hdc);
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 1);
  qt::Resize(*view, 120, 90);
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 1);
  view->DestroyWindow();
}

TEST(QtWindowTest, AScrollBarChangesTheClientAreaBeforeTheCallReturns) {
  for (const bool shown : {true, false}) {
    auto* const view = new ProbeView;
    ASSERT_TRUE(view->Create());
    qt::Resize(*view, 200, 150);
    view->ShowWindow(shown);
    App().ProcessEvents();
    view->Forget();
    const HWND window = view->GetSafeHwnd();
    ShowScrollBar(window, SB_HORZ, true);
    const CSize with = clientSize(*view);
    EXPECT_EQ(with.cx, 200);
    EXPECT_LT(with.cy, 150);
    EXPECT_EQ(view->got, std::vector<UINT>{WM_SIZE});
    EXPECT_EQ(view->sizes, std::vector<CSize>{with});
    ShowScrollBar(window, SB_HORZ, true);
    EXPECT_EQ(view->sizes.size(), 1u);
    // What is asked for is the client area, with the bar outside it.
    qt::Resize(*view, 180, 140);
    EXPECT_EQ(clientSize(*view), (CSize{180, 140}));
    ShowScrollBar(window, SB_BOTH, false);
    EXPECT_EQ(clientSize(*view).cx, 180);
    EXPECT_GT(clientSize(*view).cy, 140);
    view->DestroyWindow();
  }
}

TEST(QtWindowTest, AWindowEndsWithItsQtParent) {
  auto* const parent = new QWidget;
  ProbeView* const view = ProbeView::Shown(80, 60);
  const HWND window = view->GetSafeHwnd();
  QWidget* const widget = qt::WidgetOf(*view);
  widget->setParent(parent);
  widget->setGeometry(0, 0, 90, 70);
  parent->show();
  widget->show();
  App().ProcessEvents();
  EXPECT_EQ(clientSize(*view), (CSize{90, 70}));
  bool deleted = false;
  int destroys = 0;
  view->deleted = &deleted;
  view->onMessage = [&](UINT message, WPARAM) {
    destroys += message == WM_DESTROY;
    // The surface outlives the widget.
    if (const HDC hdc = GetDC(window)) {
      CDC(hdc).FillSolidRect({0, 0, 90, 70}, 0);
      ReleaseDC(window, hdc);
      ShowScrollBar(window, SB_BOTH, true);
    }
  };
  delete parent;
  EXPECT_TRUE(deleted);
  EXPECT_EQ(destroys, 1);
  EXPECT_FALSE(RedrawWindow(window));
}

TEST(QtWindowTest, AWindowMayEndInsideEachOfItsMessages) {
  const auto endsIn = [](UINT fatal, const std::function<void(ProbeView&)>& cause) {
    ProbeView* const view = ProbeView::Shown(80, 60);
    bool deleted = false;
    view->deleted = &deleted;
    view->onMessage = [=](UINT message, WPARAM) {
      if (message == fatal)
        view->DestroyWindow();
    };
    cause(*view);
    App().ProcessEvents();
    EXPECT_TRUE(deleted) << fatal;
  };
  endsIn(WM_SIZE, [](ProbeView& view) { ShowScrollBar(view.GetSafeHwnd(), SB_BOTH, true); });
  endsIn(WM_SIZE, [](ProbeView& view) { qt::Resize(view, 90, 90); });
  endsIn(WM_SIZE, [](ProbeView& view) { qt::WidgetOf(view)->resize(20, 20); });
  endsIn(WM_PAINT, [](ProbeView& view) { RedrawWindow(view.GetSafeHwnd()); });
  endsIn(WM_USER, [](ProbeView& view) { PostMessage(view.GetSafeHwnd(), WM_USER, 0, 0); });
  // Its user closes it.
  endsIn(WM_USER, [](ProbeView& view) { qt::WidgetOf(view)->close(); });
}

TEST(QtWindowTest, PicturesShowWhatIsDueAlsoOfHiddenWindows) {
  auto* const view = new ProbeView;
  ASSERT_TRUE(view->Create());
  qt::Resize(*view, 64, 48);
  view->onDraw = [](CDC& dc) { dc.FillSolidRect({0, 0, 64, 48}, RGB(9, 99, 199)); };
  const auto path = std::filesystem::temp_directory_path() / "sparlow_qt_picture.png";
  ASSERT_TRUE(qt::SavePicture(*view, path.string()));
  const QImage picture(QString::fromStdString(path.string()));
  EXPECT_EQ(picture.size(), pixelsOf(*view).size());
  EXPECT_EQ(qt::FromQt(picture.pixel(picture.width() - 1, picture.height() - 1)), RGB(9, 99, 199));
  std::filesystem::remove(path);
  EXPECT_FALSE(qt::SavePicture(*view, "/no/such/folder/picture.png"));
  view->Forget();
  view->ShowWindow(true);
  App().ProcessEvents();
  EXPECT_EQ(view->draws, 1) << "nobody has seen the paint for the picture";
  const HWND window = view->GetSafeHwnd();
  view->DestroyWindow();
  EXPECT_FALSE(GetClientRect(window, nullptr));
}

TEST(QtWindowTest, TheApplicationTakesItsWindowsAlongAndCanComeBack) {
  bool deleted = false;
  ProbeView::Shown(30, 30)->deleted = &deleted;
  EndApp();
  EXPECT_TRUE(deleted);
  EXPECT_FALSE(QCoreApplication::instance());
  ProbeView* const early = new ProbeView;
  EXPECT_FALSE(early->Create());
  {
    int argc = 0;
    QApplication host(argc, nullptr);
    StartApp();
    EXPECT_EQ(QCoreApplication::instance(), &host);
    deleted = false;
    ProbeView::Shown(30, 30)->deleted = &deleted;
    EndApp();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(QCoreApplication::instance(), &host);
  }
  StartApp();
  EXPECT_TRUE(early->Create());
  early->DestroyWindow();
}

TEST(QtWindowTest, TheLastCloseOfItsUserEndsTheLoop) {
  ProbeView* const view = ProbeView::Shown(30, 30);
  view->onMessage = [view](UINT message, WPARAM) {
    if (message == WM_USER)
      qt::WidgetOf(*view)->close();
  };
  PostMessage(view->GetSafeHwnd(), WM_USER, 0, 0);
  EXPECT_EQ(App().Exec(), 0);
}

}  // namespace
}  // namespace sparlow::test
