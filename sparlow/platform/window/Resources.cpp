#include "sparlow/platform/window/Resources.h"

#include <map>
#include <utility>

namespace sparlow {

namespace {

template <class Resource>
std::map<int, Resource>& registry() {
  static std::map<int, Resource> resources;
  return resources;
}

template <class Resource>
const Resource* find(int id) {
  const auto found = registry<Resource>().find(id);
  return found == registry<Resource>().end() ? nullptr : &found->second;
}

}  // namespace

void Resources::AddMenu(int id, std::vector<MenuItemTemplate> items) {
  registry<std::vector<MenuItemTemplate>>()[id] = std::move(items);
}

const std::vector<MenuItemTemplate>* Resources::FindMenu(int id) {
  return find<std::vector<MenuItemTemplate>>(id);
}

void Resources::AddDialog(int id, DialogTemplate form) {
  registry<DialogTemplate>()[id] = std::move(form);
}

const DialogTemplate* Resources::FindDialog(int id) {
  return find<DialogTemplate>(id);
}

void Resources::AddPointer(PointerShape shape) {
  const int id = shape.id;
  registry<PointerShape>()[id] = shape;
}

const PointerShape* Resources::FindPointer(int id) {
  return find<PointerShape>(id);
}

}  // namespace sparlow
