#pragma once

#include <memory>
#include <string>
#include <vector>

namespace sparlow {

struct MenuItemTemplate;

/// A menu as data: what it shows, not how. A submenu belongs to the menu that it is in.
/// Threads: the window's.
class CMenu {
 public:
  /// Fills the menu from the resource of that number. False, and nothing changes, when there is
  /// none.
  bool LoadMenu(int id);
  /// The submenu at a position; null when there is none.
  CMenu* GetSubMenu(int position) const;
  int GetMenuItemCount() const { return static_cast<int>(items_.size()); }
  /// The command at a position; 0 for a separator, -1 for a submenu or a position that isn't there.
  int GetMenuItemID(int position) const;
  /// Empty for a position that isn't there.
  std::string GetMenuString(int position) const;

 private:
  struct Item {
    unsigned id = 0;
    std::string text;
    std::unique_ptr<CMenu> subMenu;
  };
  void fill(const std::vector<MenuItemTemplate>& items);
  const Item* itemAt(int position) const;

  std::vector<Item> items_;
};

}  // namespace sparlow
