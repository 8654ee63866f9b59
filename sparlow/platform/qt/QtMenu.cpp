#include "sparlow/platform/qt/QtMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

#include "sparlow/platform/qt/QtFonts.h"
#include "sparlow/platform/qt/QtModal.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow::qt {

namespace {

/// One popup over a CMenu, which may change until it opens. Its submenus are its children.
/// Threads: the window's.
class Popup final : public QMenu {
 public:
  Popup(const CMenu& menu, HWND owner, QWidget* parent = nullptr)
      : QMenu(parent), menu_(menu), owner_(owner) {
    fill();
  }

  /// Notifies the owner that the popup opens, and takes over what that changed. False when the owner
  /// is gone.
  bool Open(int position) {
    menu_.NotifyOpening(owner_, position);
    fill();
    return WindowSite::Find(owner_) != nullptr;
  }

 private:
  void fill() {
    if (shownAs(menu_.Items()))
      return update();
    clear();
    for (const MenuItem& item : menu_.Items())
      add(item);
    update();
  }

  /// The lines are those of the menu already: takes over their state alone, so that submenus stay.
  bool shownAs(std::span<const MenuItem> items) {
    const QList<QAction*> lines = actions();
    if (lines.isEmpty() || lines.size() != static_cast<qsizetype>(items.size()))
      return false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
      const MenuItem& item = items[static_cast<std::size_t>(i)];
      if (lines[i]->data().toUInt() != item.id || lines[i]->text() != textOf(item) ||
          (lines[i]->menu() != nullptr) != (item.subMenu != nullptr))
        return false;
      setState(*lines[i], item);
    }
    return true;
  }

  void add(const MenuItem& item) {
    QAction* line = nullptr;
    if (item.subMenu) {
      auto* const popup = new Popup(*item.subMenu, owner_, this);
      const auto position = static_cast<int>(actions().size());
      connect(popup, &QMenu::aboutToShow, popup, [popup, position] { popup->Open(position); });
      line = addMenu(popup);
    } else {
      line = item.id == 0 ? addSeparator() : addAction(QString());
    }
    line->setText(textOf(item));
    line->setData(item.id);
    setState(*line, item);
  }

  static QString textOf(const MenuItem& item) { return FromUtf8(ToUtf8(item.text)); }

  void setState(QAction& line, const MenuItem& item) {
    line.setEnabled(item.enabled);
    // A box for a mark is drawn only where there is one.
    line.setCheckable(item.checked);
    line.setChecked(item.checked);
    // Qt draws the mark of a choice on members of an exclusive group.
    if (item.radio && !line.actionGroup())
      line.setActionGroup(new QActionGroup(&line));
    else if (!item.radio)
      line.setActionGroup(nullptr);
  }

  CMenu menu_;
  const HWND owner_;
};

}  // namespace

UINT TrackMenu(CMenu& menu, CPoint at, HWND owner) {
  Popup popup(menu, owner);
  const QtModal modal(popup, owner, [&popup] { popup.close(); });
  if (!popup.Open(0))
    return 0;
  const QAction* const chosen = popup.exec(QPoint(at.x, at.y));
  return chosen && !chosen->menu() && WindowSite::Find(owner) ? chosen->data().toUInt() : 0;
}

}  // namespace sparlow::qt
