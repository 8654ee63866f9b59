#include "examples/host/FocusFrame.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>

namespace sparlow::host {

namespace {

constexpr int kWidth = 2;

}  // namespace

FocusFrame::FocusFrame(QWidget* widget) {
  auto* const place = new QVBoxLayout(this);
  place->setContentsMargins(kWidth, kWidth, kWidth, kWidth);
  place->addWidget(widget);
  setFocusProxy(widget);
  connect(qApp, &QApplication::focusChanged, this, [this] { update(); });
}

void FocusFrame::paintEvent(QPaintEvent*) {
  if (hasFocus())
    QPainter(this).fillRect(rect(), palette().highlight());
}

}  // namespace sparlow::host
