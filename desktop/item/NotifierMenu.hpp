#pragma once

#include <QObject>
#include <functional>

#include "desktop/item/NotifierTypes.hpp"
#include "platform/StatusItem.hpp"

namespace Hilalor::Desktop {

/// A menu that the bar shows for us (com.canonical.dbusmenu, version 3). To be exported
/// with its properties, slots and signals.
class NotifierMenu : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
  Q_PROPERTY(uint Version READ version)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(QString TextDirection READ textDirection)
  Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

 public:
  /// The menu must outlive this; `aboutToShow` is told before the bar opens it.
  NotifierMenu(const Menu& menu, std::function<void()> aboutToShow);

  [[nodiscard]] uint version() const { return 3; }
  [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
  [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }
  [[nodiscard]] QStringList iconThemePath() const { return {}; }

 public Q_SLOTS:
  // Names are those of the interface. What it returns besides the first value goes by reference;
  // types carry their namespace, by which Qt's D-Bus finds them.
  uint GetLayout(int parent, int depth, const QStringList& names,
                 Hilalor::Desktop::MenuNode& layout) const;
  QList<Hilalor::Desktop::MenuNodeProperties> GetGroupProperties(const QList<int>& ids,
                                                                 const QStringList& names) const;
  QDBusVariant GetProperty(int id, const QString& name) const;
  void Event(int id, const QString& kind, const QDBusVariant& data, uint timestamp);
  QList<int> EventGroup(const QList<Hilalor::Desktop::MenuEvent>& events);
  bool AboutToShow(int id);
  QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& unknownIds);

 Q_SIGNALS:
  void ItemsPropertiesUpdated(const QList<Hilalor::Desktop::MenuNodeProperties>& updated,
                              const QList<Hilalor::Desktop::MenuNodeProperties>& removed);
  void LayoutUpdated(uint revision, int parent);

 private:
  [[nodiscard]] bool isLine(int id) const;
  [[nodiscard]] QVariantMap properties(int id) const;

  const Menu& menu_;
  std::function<void()> aboutToShow_;
  /// The bar has said that it is about to open the menu. Some say only this, some only that they
  /// have opened it, some both.
  bool isAnnounced_ = false;
};

}  // namespace Hilalor::Desktop
