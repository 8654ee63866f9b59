#include "examples/host/HostWindow.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>

namespace sparlow::host {

namespace {

constexpr int kProgressSteps = 1000;

}  // namespace

HostWindow::HostWindow()
    : tabs_(new QTabWidget),
      status_(new QLabel),
      complaint_(new QLabel),
      progress_(new QProgressBar) {
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setAutoHide(true);
  setCentralWidget(tabs_);
  progress_->setRange(0, kProgressSteps);
  progress_->setMaximumWidth(200);
  progress_->hide();
  complaint_->setStyleSheet(QStringLiteral("color: #b00000"));
  // A long file name must not widen the window.
  complaint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(status_);
  statusBar()->addWidget(complaint_, 1);
  statusBar()->addPermanentWidget(progress_);
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) { raise(index); });
}

void HostWindow::AddView(QWidget* widget, const std::string& name) {
  QString label = QString::fromStdString(name);
  const int index = tabs_->addTab(widget, label.replace('&', QStringLiteral("&&")));
  tabs_->setTabToolTip(index, QString::fromStdString(name));
}

void HostWindow::ShowFor(int width, int height) {
  show();
  const QWidget* const view = tabs_->currentWidget();
  if (view)
    resize(size() + QSize(width, height) - view->size());
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

}  // namespace sparlow::host
