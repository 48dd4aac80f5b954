#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QImage>
#include <QList>
#include <QString>
#include <QVariantMap>

namespace Hilalor::Desktop {

/// A picture as StatusNotifierItem carries it, "(iiay)": 32-bit ARGB in network byte order.
struct NotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;

  [[nodiscard]] static NotifierPixmap of(const QImage& image);
};

/// "(sa(iiay)ss)".
struct NotifierToolTip {
  QString iconName;
  QList<NotifierPixmap> pixmaps;
  QString title;
  QString description;
};

/// A line of a com.canonical.dbusmenu with those below it, "(ia{sv}av)".
struct MenuNode {
  int id = 0;
  QVariantMap properties;
  QList<QDBusVariant> children;
};

/// The properties of one line, "(ia{sv})".
struct MenuNodeProperties {
  int id = 0;
  QVariantMap properties;
};

/// What happened to a line, "(isvu)".
struct MenuEvent {
  int id = 0;
  QString kind;
  QDBusVariant data;
  uint timestamp = 0;
};

/// Makes the types above known to Qt's D-Bus; once is enough, more does no harm.
void registerNotifierTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuNodeProperties& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuNodeProperties& node);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

}  // namespace Hilalor::Desktop

Q_DECLARE_METATYPE(Hilalor::Desktop::NotifierPixmap)
Q_DECLARE_METATYPE(Hilalor::Desktop::NotifierToolTip)
Q_DECLARE_METATYPE(Hilalor::Desktop::MenuNode)
Q_DECLARE_METATYPE(Hilalor::Desktop::MenuNodeProperties)
Q_DECLARE_METATYPE(Hilalor::Desktop::MenuEvent)
