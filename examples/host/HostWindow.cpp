#include "examples/host/HostWindow.h"

#include <QAbstractScrollArea>
#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace sparlow::host {

namespace {

constexpr int kProgressSteps = 1000;
constexpr int kNotch = 120;  // of a wheel, in eighths of a degree

}  // namespace

HostWindow::HostWindow()
    : tabs_(new QTabWidget),
      status_(new QLabel),
      complaint_(new QLabel),
      progress_(new QProgressBar) {
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setAutoHide(true);
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
  progress_->setAccessibleName(QStringLiteral("Progress"));
  statusBar()->addWidget(status_);
  statusBar()->addWidget(complaint_, 1);
  statusBar()->addPermanentWidget(progress_);
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) { raise(index); });
}

void HostWindow::AddView(QWidget* widget, const std::string& name) {
  QString label = QString::fromStdString(name);
  const int index = tabs_->addTab(widget, label.replace('&', QStringLiteral("&&")));
  tabs_->setTabToolTip(index, QString::fromStdString(name));
  widget->setAccessibleName(QStringLiteral("Graph of ") + QString::fromStdString(name));
  // What moves is the viewport's matter.
  const auto* const area = qobject_cast<QAbstractScrollArea*>(widget);
  (area ? area->viewport() : widget)->installEventFilter(this);
}

void HostWindow::AddReadouts(QWidget* widget) {
  centralWidget()->layout()->addWidget(widget);
}

void HostWindow::BringForward(int index) {
  tabs_->setCurrentIndex(index);
}

void HostWindow::ShowFor(int width, int height) {
  show();
  QWidget* const view = tabs_->currentWidget();
  if (!view)
    return;
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
  complaint_->setToolTip(complaint_->text());
}

void HostWindow::raise(int index) {
  if (index < 0)
    return;
  setWindowTitle(tabs_->tabToolTip(index).isEmpty() ? tabs_->tabText(index)
                                                    : tabs_->tabToolTip(index));
  if (activated)
    activated(index);
}

void HostWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!mayClose || mayClose());
}

bool HostWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel)
    return QMainWindow::eventFilter(watched, event);
  turned_ += static_cast<QWheelEvent*>(event)->angleDelta().y();
  const int notches = turned_ / kNotch;
  turned_ %= kNotch;
  if (notches != 0 && wheelTurned)
    wheelTurned(notches);
  event->accept();
  return true;
}

}  // namespace sparlow::host
