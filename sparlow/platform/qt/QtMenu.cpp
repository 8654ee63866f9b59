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
class Popup final : public QMenu {
 public:
  Popup(const CMenu& menu, HWND owner, QWidget* parent = nullptr)
      : QMenu(parent), menu_(menu), owner_(owner) {}

  /// Notifies the owner that the popup opens, and then shows the menu as that left it. Returns false
  /// when the owner is gone.
  bool Open(int position) {
    menu_.NotifyOpening(owner_, position);
    clear();
    qDeleteAll(findChildren<Popup*>(Qt::FindDirectChildrenOnly));
    for (const MenuItem& item : menu_.Items())
      add(item);
    return WindowSite::Find(owner_) != nullptr;
  }

 private:
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
    line->setText(FromUtf8(ToUtf8(item.text)));
    line->setData(item.id);
    line->setEnabled(item.enabled);
    // A box for a mark is drawn only where there is one.
    line->setCheckable(item.checked);
    line->setChecked(item.checked);
    // Qt draws the mark of a choice on members of an exclusive group.
    if (item.radio)
      line->setActionGroup(new QActionGroup(line));
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
