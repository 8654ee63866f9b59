#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "sparlow/platform/base/Geometry.h"

namespace sparlow {

/// One line of a menu resource: a command, a separator (id 0 without text), or a submenu when it
/// has items.
struct MenuItemTemplate {
  unsigned id = 0;
  std::string text;
  std::vector<MenuItemTemplate> items;
};

/// One item of a dialog resource. Items of one row stand side by side in their order, and rows
/// below one another by their numbers; a label and a field make a line of a form.
struct DialogItemTemplate {
  enum class Kind { label, defaultButton, button, edit, checkBox };
  int id = 0;
  Kind kind = Kind::label;
  int row = 0;
  std::string text;
};

/// A dialog resource. It is as large as its items need, and these come in tab order.
struct DialogTemplate {
  std::string title;
  bool helpButton = false;  ///< in the caption
  std::vector<DialogItemTemplate> items;
};

/// A shape of the mouse pointer, 32 by 32 pixels, of two colours: a row each, its leftmost pixel in
/// the highest bit. A pixel in neither mask is transparent.
struct PointerShape {
  int id = 0;
  CPoint hotSpot;
  std::array<std::uint32_t, 32> black{};
  std::array<std::uint32_t, 32> white{};
};

/// The resources of the library by number, entered by whoever owns them.
class Resources {
 public:
  /// Enters a menu in place of any earlier one of that number.
  static void AddMenu(int id, std::vector<MenuItemTemplate> items);
  /// Null when no menu has that number. Good until it is entered again.
  static const std::vector<MenuItemTemplate>* FindMenu(int id);
  /// The same for dialogs.
  static void AddDialog(int id, DialogTemplate form);
  static const DialogTemplate* FindDialog(int id);
  /// The same for shapes of the pointer, by the number that they hold.
  static void AddPointer(PointerShape shape);
  static const PointerShape* FindPointer(int id);
};

}  // namespace sparlow
