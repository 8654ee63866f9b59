#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

class CWnd;
class CMenu;
struct MenuItemTemplate;

inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002;
inline constexpr UINT MF_UNCHECKED = 0x0000;
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_POPUP = 0x0010;
inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_SEPARATOR = 0x0800;

/// One line of a menu: a command, a submenu, or a separator (id 0 without a submenu).
/// Threads: the window's.
struct MenuItem {
  UINT id = 0;
  std::string text;  ///< what follows a tab is the key that does the same
  bool enabled = true;
  bool checked = false;
  bool radio = false;  ///< its mark is that of one choice among several
  std::unique_ptr<CMenu> subMenu;
};

/// Names a menu, which is data: what it shows, not how. A copy names the same menu, and the menu
/// lives as long as anything names it: an object of this class, or the menu that it is a submenu
/// of.
class CMenu {
 public:
  /// Makes this name a new menu, filled from the resource of that number. Returns false, and
  /// changes nothing, when there is none.
  bool LoadMenu(int id);
  /// Makes this name a new, empty menu.
  bool CreatePopupMenu();
  /// Makes this name no menu.
  void DestroyMenu() { items_ = nullptr; }

  /// Adds a command, or a separator with MF_SEPARATOR. Returns false when this names no menu.
  bool AppendMenu(UINT flags, UINT id = 0, const char* text = nullptr);
  /// Adds a submenu (MF_POPUP). It stays the menu that the other object names, so that what is
  /// added to it there later shows here. Returns false, too, for a menu that would then hold
  /// itself.
  bool AppendMenu(UINT flags, const CMenu& subMenu, const char* text);

  /// The submenu at a position; null when there is none. It stays while the menu does.
  CMenu* GetSubMenu(int position) const;
  /// The command at a position; 0 for a separator, -1 for a submenu or a position that isn't there.
  int GetMenuItemID(int position) const;
  /// Good until an item is added.
  std::span<const MenuItem> Items() const;

  /// @name State of an item
  /// The item is that of a command, here or in any submenu.
  ///@{

  /// Return the state before in the same flags, or -1 when there is no such item.
  int EnableMenuItem(UINT command, UINT flags);
  int CheckMenuItem(UINT command, UINT flags);
  /// Gives one command of a range the mark of a choice, and takes the marks of the others. Returns
  /// false, and changes nothing, when that one isn't there. flags make no difference.
  bool CheckMenuRadioItem(UINT first, UINT last, UINT command, UINT flags);
  ///@}

  /// Shows the menu at a point of the screen and returns when it is closed. What was chosen is
  /// posted to the owner as WM_COMMAND, if that still lives. Posted messages and paints are served
  /// meanwhile, so that everything but the menu itself may be gone after it. Returns false when
  /// nothing was shown. flags make no difference.
  bool TrackPopupMenu(UINT flags, int x, int y, const CWnd* owner) const;
  /// Before the menu is shown, alone or as the submenu at a position of another one: sends the
  /// owner WM_INITMENUPOPUP with this object and the position. For whoever shows it.
  void NotifyOpening(HWND owner, int position);

 private:
  void fill(const std::vector<MenuItemTemplate>& items);
  bool holds(const CMenu& other) const;
  const MenuItem* itemAt(int position) const;
  MenuItem* find(UINT command) const;

  std::shared_ptr<std::vector<MenuItem>> items_;
};

}  // namespace sparlow
