#include "sparlow/platform/CMenu.h"

#include <map>
#include <utility>

#include "sparlow/platform/Resources.h"

namespace sparlow {

namespace {

std::map<int, std::vector<MenuItemTemplate>>& menus() {
  static std::map<int, std::vector<MenuItemTemplate>> registry;
  return registry;
}

}  // namespace

void Resources::AddMenu(int id, std::vector<MenuItemTemplate> items) {
  menus()[id] = std::move(items);
}

const std::vector<MenuItemTemplate>* Resources::FindMenu(int id) {
  const auto found = menus().find(id);
  return found == menus().end() ? nullptr : &found->second;
}

bool CMenu::LoadMenu(int id) {
  const auto* const items = Resources::FindMenu(id);
  if (!items)
    return false;
  fill(*items);
  return true;
}

void CMenu::fill(const std::vector<MenuItemTemplate>& items) {
  items_.clear();
  for (const MenuItemTemplate& from : items) {
    Item item{from.id, from.text, nullptr};
    if (!from.items.empty()) {
      item.subMenu = std::make_unique<CMenu>();
      item.subMenu->fill(from.items);
    }
    items_.push_back(std::move(item));
  }
}

const CMenu::Item* CMenu::itemAt(int position) const {
  const auto index = static_cast<std::size_t>(position);
  return position >= 0 && index < items_.size() ? &items_[index] : nullptr;
}

CMenu* CMenu::GetSubMenu(int position) const {
  const Item* const item = itemAt(position);
  return item ? item->subMenu.get() : nullptr;
}

int CMenu::GetMenuItemID(int position) const {
  const Item* const item = itemAt(position);
  return item && !item->subMenu ? static_cast<int>(item->id) : -1;
}

std::string CMenu::GetMenuString(int position) const {
  const Item* const item = itemAt(position);
  return item ? item->text : std::string();
}

}  // namespace sparlow
