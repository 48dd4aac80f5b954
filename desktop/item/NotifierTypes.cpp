#include "desktop/item/NotifierTypes.hpp"

#include <QDBusMetaType>
#include <QtEndian>

namespace Hilalor::Desktop {
namespace {

template <typename... Fields>
QDBusArgument& write(QDBusArgument& argument, const Fields&... fields) {
  argument.beginStructure();
  (argument << ... << fields);
  argument.endStructure();
  return argument;
}

template <typename... Fields>
const QDBusArgument& read(const QDBusArgument& argument, Fields&... fields) {
  argument.beginStructure();
  (argument >> ... >> fields);
  argument.endStructure();
  return argument;
}

}  // namespace

NotifierPixmap NotifierPixmap::of(const QImage& image) {
  QImage picture = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < picture.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    qToBigEndian<QRgb>(line, picture.width(), line);
  }
  const auto* bytes = reinterpret_cast<const char*>(picture.constBits());
  return {picture.width(), picture.height(), QByteArray(bytes, picture.sizeInBytes())};
}

void registerNotifierTypes() {
  qDBusRegisterMetaType<NotifierPixmap>();
  qDBusRegisterMetaType<QList<NotifierPixmap>>();
  qDBusRegisterMetaType<NotifierToolTip>();
  qDBusRegisterMetaType<QList<QDBusVariant>>();
  qDBusRegisterMetaType<MenuNode>();
  qDBusRegisterMetaType<MenuNodeProperties>();
  qDBusRegisterMetaType<QList<MenuNodeProperties>>();
  qDBusRegisterMetaType<MenuEvent>();
  qDBusRegisterMetaType<QList<MenuEvent>>();
  qDBusRegisterMetaType<QList<int>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
  return write(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
  return read(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
  return write(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.description);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
  return read(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.description);
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuNode& node) {
  return write(argument, node.id, node.properties, node.children);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuNode& node) {
  return read(argument, node.id, node.properties, node.children);
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuNodeProperties& node) {
  return write(argument, node.id, node.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuNodeProperties& node) {
  return read(argument, node.id, node.properties);
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
  return write(argument, event.id, event.kind, event.data, event.timestamp);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
  return read(argument, event.id, event.kind, event.data, event.timestamp);
}

}  // namespace Hilalor::Desktop
