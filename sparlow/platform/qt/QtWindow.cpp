#include "sparlow/platform/qt/QtWindow.h"

#include <utility>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtWidget.h"
#include "sparlow/platform/qt/QtWindowSystem.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

namespace {

constexpr CSize defaultClientSize{640, 480};
constexpr COLORREF background = RGB(255, 255, 255);

}  // namespace

QtWindow::QtWindow(WindowSite& site, QtWindowSystem& system, std::uint32_t style)
    : site_(site), system_(system), widget_(new QtWidget(*this)), surface_({}, 1.0, background) {
  setBarPolicy(SB_HORZ, (style & WS_HSCROLL) != 0);
  setBarPolicy(SB_VERT, (style & WS_VSCROLL) != 0);
  widget_->resize(defaultClientSize.cx, defaultClientSize.cy);
  widget_->LayOut();
  // The site can't hear of a size before it has its peer.
  UiThread::Wake();
}

QtWindow::~QtWindow() {
  End();
}

void QtWindow::End() {
  system_.Forget(this);
  if (QtWidget* const widget = std::exchange(widget_, nullptr))
    widget->Discard();
}

void QtWindow::WidgetGone() {
  widget_ = nullptr;
  site_.Destroy();
}

void QtWindow::Closed() {
  site_.Destroy();
}

void QtWindow::Present() {
  if (widget_)
    widget_->viewport()->update();
}

bool QtWindow::IsShown() const {
  return widget_ && widget_->isVisible();
}

void QtWindow::Show(bool show) {
  if (widget_)
    widget_->setVisible(show);
}

void QtWindow::SetTitle(const std::string& utf8) {
  if (widget_)
    widget_->setWindowTitle(FromUtf8(utf8));
}

void QtWindow::setBarPolicy(int bar, bool show) {
  if (!widget_)
    return;
  const auto policy = show ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  if (bar == SB_HORZ)
    widget_->setHorizontalScrollBarPolicy(policy);
  else if (bar == SB_VERT)
    widget_->setVerticalScrollBarPolicy(policy);
}

void QtWindow::ShowScrollBar(int bar, bool show) {
  // Each step may run the window's WM_SIZE, and that may end the window.
  const WindowHold hold(site_);
  setBarPolicy(bar, show);
  layOut();
  SyncSize();
}

void QtWindow::layOut() {
  if (widget_)
    widget_->LayOut();
}

void QtWindow::SetClientSize(CSize size) {
  if (!widget_)
    return;
  const WindowHold hold(site_);
  layOut();
  if (!widget_)
    return;
  const QSize around = widget_->size() - widget_->viewport()->size();
  widget_->resize(QSize(std::max(size.cx, 1), std::max(size.cy, 1)) + around);
  layOut();
  SyncSize();
}

void QtWindow::SyncSize() {
  // A message must not run into a wait; the Serve after it calls this again.
  if (!widget_ || UiThread::InWait())
    return;
  const QWidget* const viewport = widget_->viewport();
  const CSize size{viewport->width(), viewport->height()};
  const double scale = viewport->devicePixelRatioF();
  if (sizeKnown_ && size == surface_.Size() && scale == surface_.Scale())
    return;
  sizeKnown_ = true;
  surface_.Remake(size, scale, background);
  // Also for a new scale alone: off-screen bitmaps are to be made anew.
  site_.Resized(size);
}

}  // namespace sparlow::qt
