#include "examples/host/HostWindow.h"

#include <QAbstractScrollArea>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

#include "examples/host/FocusFrame.h"

namespace sparlow::host {

namespace {

constexpr int kProgressSteps = 1000;
constexpr int kNotch = 120;  // of a wheel, in eighths of a degree

/// A key that scrolls as a scroll bar does.
struct ScrollKey {
  int key;
  UINT message;
  int code;
};
constexpr ScrollKey kScrollKeys[] = {{Qt::Key_PageUp, WM_HSCROLL, SB_PAGELEFT},
                                     {Qt::Key_PageDown, WM_HSCROLL, SB_PAGERIGHT},
                                     {Qt::Key_Up, WM_VSCROLL, SB_LINEUP},
                                     {Qt::Key_Down, WM_VSCROLL, SB_LINEDOWN}};

}  // namespace

HostWindow::HostWindow()
    : tabs_(new QTabWidget),
      status_(new QLabel),
      complaint_(new QLabel),
      progress_(new QProgressBar) {
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setAutoHide(true);
  // The tabs take the focus by themselves: handed on to tabs that are hidden it would go nowhere.
  tabs_->setFocusProxy(nullptr);
  tabs_->setFocusPolicy(Qt::NoFocus);
  tabs_->setAccessibleName(QStringLiteral("Graphs"));
  auto* const middle = new QWidget;
  auto* const column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(tabs_, 1);
  setCentralWidget(middle);
  progress_->setRange(0, kProgressSteps);
  progress_->setMaximumWidth(200);
  progress_->hide();
  complaint_->setStyleSheet(QStringLiteral("color: #b00000"));
  // A long file name must not widen the window.
  complaint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  status_->setObjectName(QStringLiteral("status"));
  complaint_->setObjectName(QStringLiteral("complaint"));
  // File names are no mark-up.
  status_->setTextFormat(Qt::PlainText);
  complaint_->setTextFormat(Qt::PlainText);
  progress_->setAccessibleName(QStringLiteral("Progress"));
  statusBar()->addWidget(status_);
  statusBar()->addWidget(complaint_, 1);
  statusBar()->addPermanentWidget(progress_);
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) { cameForward(index); });
}

void HostWindow::AddView(QWidget* widget) {
  widget->installEventFilter(this);
  // The wheel is the viewport's matter.
  if (const auto* const area = qobject_cast<QAbstractScrollArea*>(widget))
    area->viewport()->installEventFilter(this);
  tabs_->addTab(new FocusFrame(widget), QString());
}

void HostWindow::Rename(int index, const std::string& name) {
  const QString title = QString::fromStdString(name);
  QString label = title;
  tabs_->setTabText(index, label.replace('&', QStringLiteral("&&")));
  tabs_->setTabToolTip(index, title.toHtmlEscaped());
  QWidget* const frame = tabs_->widget(index);
  frame->setWindowTitle(title);
  if (QWidget* const view = frame->focusProxy())
    view->setAccessibleName(QStringLiteral("Graph of ") + title);
  if (index == Current())
    setWindowTitle(title);
}

void HostWindow::RemoveView(int index) {
  QWidget* const frame = tabs_->widget(index);
  tabs_->removeTab(index);
  frame->deleteLater();
}

void HostWindow::AddReadouts(QWidget* widget) {
  centralWidget()->layout()->addWidget(new FocusFrame(widget));
}

void HostWindow::BringForward(int index) {
  tabs_->setCurrentIndex(index);
}

void HostWindow::ShowFor(int width, int height) {
  show();
  if (!tabs_->currentWidget())
    return;
  QWidget* const view = tabs_->currentWidget()->focusProxy();
  // What lies around the view may be of another height in another width.
  for (int i = 0; i < 2; ++i) {
    resize(size() + QSize(width, height) - view->size());
    centralWidget()->layout()->activate();
  }
  view->setFocus();
}

int HostWindow::Current() const {
  return tabs_->currentIndex();
}

void HostWindow::SetStatus(const std::string& text, double share) {
  status_->setText(QString::fromStdString(text));
  const bool underWay = share >= 0.0 && share < 1.0;
  progress_->setVisible(underWay);
  if (underWay)
    progress_->setValue(static_cast<int>(share * kProgressSteps));
}

void HostWindow::SetComplaint(const std::string& text) {
  complaint_->setText(QString::fromStdString(text));
  complaint_->setToolTip(complaint_->text().toHtmlEscaped());
}

void HostWindow::cameForward(int index) {
  if (index < 0)
    return;
  setWindowTitle(tabs_->widget(index)->windowTitle());
  if (activated)
    activated(index);
}

void HostWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!mayClose || mayClose());
}

bool HostWindow::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::Wheel && !qobject_cast<QAbstractScrollArea*>(watched))
    taken = turn(static_cast<QWheelEvent*>(event)->angleDelta().y());
  else if (event->type() == QEvent::KeyPress)
    taken = press(*static_cast<QKeyEvent*>(event));
  else if (event->type() == QEvent::ContextMenu)
    taken = static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
  if (taken && event->type() == QEvent::ContextMenu && menuWanted)
    menuWanted();
  if (taken)
    event->accept();
  return taken || QMainWindow::eventFilter(watched, event);
}

bool HostWindow::turn(int angle) {
  turned_ += angle;
  const int notches = turned_ / kNotch;
  turned_ %= kNotch;
  if (notches != 0 && wheelTurned)
    wheelTurned(notches);
  return true;
}

bool HostWindow::press(const QKeyEvent& event) {
  // The menu key is known to Qt by itself.
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier && menuWanted) {
    menuWanted();
    return true;
  }
  const auto* const found =
      std::find_if(std::begin(kScrollKeys), std::end(kScrollKeys),
                   [&](const ScrollKey& scroll) { return scroll.key == event.key(); });
  if (found == std::end(kScrollKeys) || !scrolled ||
      (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::NoModifier)
    return false;
  scrolled(found->message, found->code);
  return true;
}

}  // namespace sparlow::host
