#include "platform/desktop/status/bus/menu_model.h"

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

bool looksLike(const MenuItem& a, const MenuItem& b) {
  return a.title == b.title && a.enabled == b.enabled && a.keyEquivalent == b.keyEquivalent;
}

}  // namespace

bool MenuModel::replace(Menu menu) {
  auto old = std::exchange(rows_, {});
  bool differs = old.size() != menu.items.size();
  auto candidates = old;
  for (auto& item : menu.items) {
    // Rows with the same title (separators, above all) take the numbers in their order.
    const auto known =
        std::ranges::find(candidates, item.title, [](const Row& row) { return row.item.title; });
    int id = 0;
    if (known == candidates.end()) {
      id = ++lastId_;
    } else {
      id = known->id;
      candidates.erase(known);
    }
    const auto at = rows_.size();
    differs = differs || old[at].id != id || !looksLike(old[at].item, item);
    rows_.push_back({.id = id, .item = std::move(item)});
  }
  if (differs) { ++revision_; }
  return differs;
}

const MenuItem* MenuModel::find(int id) const {
  const auto found = std::ranges::find(rows_, id, &Row::id);
  return found == rows_.end() ? nullptr : &found->item;
}

}  // namespace orvane
