#pragma once

#include <string>
#include <vector>

namespace sparlow {

/// One line of a menu resource: a command, a separator (id 0 without text), or a submenu when it
/// has items.
/// Threads: a value; any thread, each with its own.
struct MenuItemTemplate {
  unsigned id = 0;
  std::string text;
  std::vector<MenuItemTemplate> items;
};

/// The resources of the library by number, entered by whoever owns them.
/// Threads: the window's.
class Resources {
 public:
  /// Enters a menu in place of any earlier one of that number.
  static void AddMenu(int id, std::vector<MenuItemTemplate> items);
  /// Null when no menu has that number. Good until it is entered again.
  static const std::vector<MenuItemTemplate>* FindMenu(int id);
};

}  // namespace sparlow
