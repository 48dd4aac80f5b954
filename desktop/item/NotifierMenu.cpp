#include "desktop/item/NotifierMenu.hpp"

#include <algorithm>
#include <utility>

#include "desktop/item/ItemMenu.hpp"

namespace Hilalor::Desktop {
namespace {

/// The menu itself; its lines follow from 1.
constexpr int kRoot = 0;
/// The revision of a menu whose lines never change.
constexpr uint kRevision = 1;

}  // namespace

NotifierMenu::NotifierMenu(const Menu& menu, std::function<void()> aboutToShow)
    : menu_(menu), aboutToShow_(std::move(aboutToShow)) {}

uint NotifierMenu::GetLayout(int parent, int, const QStringList&, MenuNode& layout) const {
  layout = {parent, properties(parent), {}};
  if (parent != kRoot) return kRevision;
  for (int id = 1; isLine(id); ++id) {
    layout.children.append(QDBusVariant(QVariant::fromValue(MenuNode{id, properties(id), {}})));
  }
  return kRevision;
}

QList<MenuNodeProperties> NotifierMenu::GetGroupProperties(const QList<int>& ids,
                                                           const QStringList&) const {
  QList<MenuNodeProperties> group;
  for (const int id : ids) {
    if (id == kRoot || isLine(id)) group.append({id, properties(id)});
  }
  return group;
}

QDBusVariant NotifierMenu::GetProperty(int id, const QString& name) const {
  return QDBusVariant(properties(id).value(name));
}

void NotifierMenu::Event(int id, const QString& kind, const QDBusVariant&, uint) {
  const bool isOpening = id == kRoot && kind == QStringLiteral("opened");
  if (isOpening && !std::exchange(isAnnounced_, false)) aboutToShow_();
  if (!isLine(id) || kind != QStringLiteral("clicked")) return;
  // The action may take the menu away.
  if (const auto action = menu_[static_cast<std::size_t>(id - 1)].action) action();
}

QList<int> NotifierMenu::EventGroup(const QList<MenuEvent>& events) {
  QList<int> unknownIds;
  for (const auto& event : events) {
    if (event.id != kRoot && !isLine(event.id)) unknownIds.append(event.id);
    Event(event.id, event.kind, event.data, event.timestamp);
  }
  return unknownIds;
}

bool NotifierMenu::AboutToShow(int id) {
  if (id == kRoot) {
    isAnnounced_ = true;
    aboutToShow_();
  }
  return false;
}

QList<int> NotifierMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& unknownIds) {
  for (const int id : ids) {
    if (id != kRoot && !isLine(id)) unknownIds.append(id);
    AboutToShow(id);
  }
  return {};
}

bool NotifierMenu::isLine(int id) const {
  return id > kRoot && static_cast<std::size_t>(id) <= menu_.size();
}

QVariantMap NotifierMenu::properties(int id) const {
  if (id == kRoot) return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
  if (!isLine(id)) return {};
  const auto& line = menu_[static_cast<std::size_t>(id - 1)];
  if (line.title.empty()) return {{QStringLiteral("type"), QStringLiteral("separator")}};
  return {{QStringLiteral("label"), ItemMenu::marked(line, u'_')},
          {QStringLiteral("enabled"), true},
          {QStringLiteral("visible"), true}};
}

}  // namespace Hilalor::Desktop
