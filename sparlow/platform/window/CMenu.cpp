#include "sparlow/platform/window/CMenu.h"

#include <utility>

#include "sparlow/platform/window/CWnd.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/WindowPeer.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow {

bool CMenu::LoadMenu(int id) {
  const auto* const items = Resources::FindMenu(id);
  if (!items)
    return false;
  fill(*items);
  return true;
}

void CMenu::fill(const std::vector<MenuItemTemplate>& items) {
  CreatePopupMenu();
  for (const MenuItemTemplate& from : items) {
    MenuItem item;
    item.id = from.id;
    item.text = from.text;
    if (!from.items.empty()) {
      item.subMenu = std::make_unique<CMenu>();
      item.subMenu->fill(from.items);
    }
    items_->push_back(std::move(item));
  }
}

bool CMenu::CreatePopupMenu() {
  items_ = std::make_shared<std::vector<MenuItem>>();
  return true;
}

bool CMenu::AppendMenu(UINT flags, UINT id, const char* text) {
  if (!items_)
    return false;
  MenuItem item;
  if ((flags & MF_SEPARATOR) == 0) {
    item.id = id;
    item.text = text ? text : "";
    item.enabled = (flags & (MF_GRAYED | MF_DISABLED)) == 0;
    item.checked = (flags & MF_CHECKED) != 0;
  }
  items_->push_back(std::move(item));
  return true;
}

bool CMenu::AppendMenu(UINT flags, const CMenu& subMenu, const char* text) {
  if (!items_ || !subMenu.items_ || subMenu.holds(*this) || !AppendMenu(flags, 0, text))
    return false;
  items_->back().subMenu = std::make_unique<CMenu>(subMenu);
  return true;
}

bool CMenu::holds(const CMenu& other) const {
  if (items_ == other.items_)
    return true;
  for (const MenuItem& item : Items()) {
    if (item.subMenu && item.subMenu->holds(other))
      return true;
  }
  return false;
}

std::span<const MenuItem> CMenu::Items() const {
  return items_ ? std::span<const MenuItem>(*items_) : std::span<const MenuItem>();
}

const MenuItem* CMenu::itemAt(int position) const {
  const auto index = static_cast<std::size_t>(position);
  return position >= 0 && index < Items().size() ? &Items()[index] : nullptr;
}

CMenu* CMenu::GetSubMenu(int position) const {
  const MenuItem* const item = itemAt(position);
  return item ? item->subMenu.get() : nullptr;
}

int CMenu::GetMenuItemID(int position) const {
  const MenuItem* const item = itemAt(position);
  return item && !item->subMenu ? static_cast<int>(item->id) : -1;
}

MenuItem* CMenu::find(UINT command) const {
  if (!items_)
    return nullptr;
  for (MenuItem& here : *items_) {
    MenuItem* const found = here.subMenu         ? here.subMenu->find(command)
                            : here.id == command ? &here
                                                 : nullptr;
    if (found)
      return found;
  }
  return nullptr;
}

int CMenu::EnableMenuItem(UINT command, UINT flags) {
  MenuItem* const found = find(command);
  if (!found)
    return -1;
  const bool before = std::exchange(found->enabled, (flags & (MF_GRAYED | MF_DISABLED)) == 0);
  return static_cast<int>(before ? MF_ENABLED : MF_GRAYED);
}

int CMenu::CheckMenuItem(UINT command, UINT flags) {
  MenuItem* const found = find(command);
  if (!found)
    return -1;
  const bool before = std::exchange(found->checked, (flags & MF_CHECKED) != 0);
  return static_cast<int>(before ? MF_CHECKED : MF_UNCHECKED);
}

bool CMenu::CheckMenuRadioItem(UINT first, UINT last, UINT command, UINT) {
  MenuItem* const chosen = find(command);
  if (!chosen || command < first || command > last)
    return false;
  // Up to 0xFFFF: commands have 16 bits.
  for (UINT other = first; other <= last && other <= 0xFFFF; ++other) {
    if (MenuItem* const found = find(other))
      found->checked = found->radio = false;
  }
  chosen->checked = chosen->radio = true;
  return true;
}

bool CMenu::TrackPopupMenu(UINT, int x, int y, const CWnd* owner) const {
  WindowSystem* const system = WindowSystem::Current();
  const HWND window = owner ? owner->GetSafeHwnd() : nullptr;
  if (!system || !items_ || !window)
    return false;
  // This object may end while the menu is open.
  CMenu shown(*this);
  if (const UINT chosen = system->TrackMenu(shown, {x, y}, window))
    PostMessage(window, WM_COMMAND, chosen, 0);
  return true;
}

void CMenu::NotifyOpening(HWND owner, int position) {
  SendMessage(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(this), position & 0xFFFF);
}

}  // namespace sparlow
