#include "sparlow/platform/qt/QtDialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWhatsThis>
#include <algorithm>
#include <cmath>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtModal.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::qt {

namespace {

/// From dialog units to pixels, by the font that a dialog has.
/// Threads: the window's.
class DialogUnits {
 public:
  explicit DialogUnits(const QWidget& dialog) {
    const QFontMetricsF metrics(dialog.font());
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    x_ = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size()) / 4.0;
    y_ = metrics.height() / 8.0;
  }
  QRect operator()(int x, int y, int width, int height) const {
    const auto pixels = [](double units) { return static_cast<int>(std::lround(units)); };
    return {QPoint(pixels(x * x_), pixels(y * y_)), QSize(pixels(width * x_), pixels(height * y_))};
  }

 private:
  double x_;
  double y_;
};

/// Sends what is done with the dialog as a whole.
/// Threads: the window's.
class Frame final : public QDialog {
 public:
  explicit Frame(HWND dialog) : dialog_(dialog) {}

  /// Of the Escape key, and of the close button in the caption.
  void reject() override { SendMessage(dialog_, WM_COMMAND, IDCANCEL, 0); }

 protected:
  bool event(QEvent* event) override {
    // The help button in the caption.
    if (event->type() != QEvent::EnterWhatsThisMode)
      return QDialog::event(event);
    QWhatsThis::leaveWhatsThisMode();
    SendMessage(dialog_, WM_HELP, 0, 0);
    return true;
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_F1)
      SendMessage(dialog_, WM_HELP, 0, 0);
    else
      QDialog::keyPressEvent(event);
  }

 private:
  const HWND dialog_;
};

}  // namespace

QtDialog::QtDialog(const DialogTemplate& form, HWND dialog, HWND owner)
    : dialog_(dialog), owner_(owner), widget_(std::make_unique<Frame>(dialog)) {
  widget_->setWindowTitle(FromUtf8(ToUtf8(form.title)));
  widget_->setWindowFlag(Qt::WindowContextHelpButtonHint, form.helpButton);
  const DialogUnits units(*widget_);
  QWidget* before = nullptr;
  for (const DialogItemTemplate& item : form.items) {
    QWidget* const widget = makeItem(item);
    const QRect place = units(item.x, item.y, item.width, item.height);
    // A font of other proportions than the units' must not cut a text off, nor a field's frame.
    QRect room(place.topLeft(), place.size().expandedTo(widget->minimumSizeHint()));
    room.moveTop(place.center().y() - room.height() / 2);
    widget->setGeometry(room);
    if (before)
      QWidget::setTabOrder(before, widget);
    before = widget;
    items_.emplace(item.id, widget);
  }
  const QRect covered = widget_->childrenRect();
  widget_->setFixedSize(units(0, 0, form.width, form.height)
                            .size()
                            .expandedTo(QSize(covered.right() + 1, covered.bottom() + 1)));
}

QtDialog::~QtDialog() = default;

QWidget* QtDialog::makeItem(const DialogItemTemplate& item) {
  using Kind = DialogItemTemplate::Kind;
  const QString text = FromUtf8(ToUtf8(item.text));
  const auto notify = [dialog = dialog_, id = static_cast<WPARAM>(item.id)] {
    SendMessage(dialog, WM_COMMAND, id, 0);
  };
  switch (item.kind) {
    case Kind::button:
    case Kind::defaultButton: {
      auto* const button = new QPushButton(text, widget_.get());
      button->setDefault(item.kind == Kind::defaultButton);
      QObject::connect(button, &QPushButton::clicked, button, notify);
      return button;
    }
    case Kind::checkBox: {
      auto* const box = new QCheckBox(text, widget_.get());
      QObject::connect(box, &QCheckBox::clicked, box, notify);
      return box;
    }
    case Kind::edit:
      return new QLineEdit(text, widget_.get());
    case Kind::label:
      break;
  }
  return new QLabel(text, widget_.get());
}

QWidget* QtDialog::find(int id) const {
  const auto found = items_.find(id);
  return found == items_.end() ? nullptr : found->second;
}

template <class Widget>
Widget* QtDialog::findAs(int id) const {
  return qobject_cast<Widget*>(find(id));
}

void QtDialog::EnableItem(int id, bool enable) {
  if (QWidget* const item = find(id))
    item->setEnabled(enable);
}

bool QtDialog::IsItemEnabled(int id) const {
  const QWidget* const item = find(id);
  return item && item->isEnabled();
}

void QtDialog::CheckItem(int id, bool check) {
  if (auto* const button = findAs<QAbstractButton>(id))
    button->setChecked(check);
}

bool QtDialog::IsItemChecked(int id) const {
  const auto* const button = findAs<QAbstractButton>(id);
  return button && button->isChecked();
}

void QtDialog::SetItemText(int id, const std::string& utf8) {
  const QString text = FromUtf8(utf8);
  if (auto* const edit = findAs<QLineEdit>(id)) {
    edit->setText(text);
    makeRoom(*edit);
    // Of a long text the beginning is what counts.
    edit->setCursorPosition(0);
  } else if (auto* const button = findAs<QAbstractButton>(id)) {
    button->setText(text);
  } else if (auto* const label = findAs<QLabel>(id)) {
    label->setText(text);
  }
}

/// All fields as wide as the text of one takes, if that isn't more than a number with its unit, and
/// the dialog with them.
void QtDialog::makeRoom(const QLineEdit& field) {
  constexpr int most = 45;
  // A field's own size hint is that of 17 characters and its frame.
  const QFontMetrics metrics(field.font());
  const int character = metrics.horizontalAdvance(QLatin1Char('x'));
  const int frame = field.sizeHint().width() - 17 * character;
  const int text = std::min(metrics.horizontalAdvance(field.text()), most * character);
  const int more = text + frame - field.width(), right = field.geometry().right();
  if (more <= 0)
    return;
  for (const auto& [id, item] : items_) {
    if (qobject_cast<QLineEdit*>(item))
      item->resize(item->width() + more, item->height());
    else if (item->x() > right)
      item->move(item->x() + more, item->y());
  }
  widget_->setFixedSize(widget_->size() + QSize(more, 0));
}

std::string QtDialog::ItemText(int id) const {
  if (const auto* const edit = findAs<QLineEdit>(id))
    return edit->text().toStdString();
  if (const auto* const button = findAs<QAbstractButton>(id))
    return button->text().toStdString();
  const auto* const label = findAs<QLabel>(id);
  return label ? label->text().toStdString() : std::string();
}

void QtDialog::SetItemName(int id, const std::string& utf8) {
  if (QWidget* const item = find(id))
    item->setAccessibleName(FromUtf8(utf8));
}

void QtDialog::FocusItem(int id) {
  if (QWidget* const item = find(id))
    item->setFocus();
  if (auto* const edit = findAs<QLineEdit>(id))
    edit->selectAll();
}

void QtDialog::Run() {
  QtModal modal(*widget_, owner_, [this] { widget_->reject(); });
  modal.Place();
  widget_->exec();
}

void QtDialog::Close() {
  widget_->done(QDialog::Accepted);
}

}  // namespace sparlow::qt
