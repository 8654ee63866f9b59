#include "sparlow/platform/qt/QtDialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWhatsThis>
#include <algorithm>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtModal.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::qt {

namespace {

/// A field is at least as wide as its text takes, if that isn't more than a number with its unit.
void makeRoom(QLineEdit& field) {
  constexpr int most = 45;
  // A field's own size hint is that of 17 characters and its frame.
  const QFontMetrics metrics(field.font());
  const int character = metrics.horizontalAdvance(QLatin1Char('x'));
  const int frame = field.sizeHint().width() - 17 * character;
  const int text = std::min(metrics.horizontalAdvance(field.text()), most * character);
  field.setMinimumWidth(std::max(field.minimumWidth(), text + frame));
}

void addRow(QFormLayout& layout, const QList<QWidget*>& row) {
  auto* const label = qobject_cast<QLabel*>(row.first());
  if (label && row.size() == 2) {
    label->setBuddy(row.last());
    layout.addRow(label, row.last());
    return;
  }
  auto* const line = new QHBoxLayout;
  for (QWidget* const widget : row)
    line->addWidget(widget);
  layout.addRow(line);
}

/// Sends what is done with the dialog as a whole.
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
  std::map<int, QList<QWidget*>> rows;
  QWidget* before = nullptr;
  for (const DialogItemTemplate& item : form.items) {
    QWidget* const widget = makeItem(item);
    if (before)
      QWidget::setTabOrder(before, widget);
    before = widget;
    items_.emplace(item.id, widget);
    rows[item.row].append(widget);
  }
  auto* const layout = new QFormLayout(widget_.get());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  for (const auto& [number, row] : rows)
    addRow(*layout, row);
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
  widget_->adjustSize();
  modal.Place();
  widget_->exec();
}

void QtDialog::Close() {
  widget_->done(QDialog::Accepted);
}

}  // namespace sparlow::qt
