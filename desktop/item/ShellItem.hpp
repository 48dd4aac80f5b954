#pragma once

#include <QDBusConnection>
#include <QObject>

#include "desktop/item/GlyphPictures.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "desktop/item/NotifierMenu.hpp"
#include "desktop/item/ShellExtension.hpp"

namespace Hilalor::Desktop {

/// The item as our extension of GNOME Shell shows it: a button in the top bar with our text, which
/// tells its place with every click. It has a name and an interface of its own on the bus, so that
/// no other bar takes it for its own.
class ShellItem : public QObject, public ItemPresence {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.hilalor.Item")
  Q_PROPERTY(QString Text READ text)
  Q_PROPERTY(QString Picture READ picture)

 public:
  /// The extension must be there. All must outlive the item.
  ShellItem(ShellExtension& extension, const ItemContent& content, const GlyphPictures& pictures);
  ~ShellItem() override;

  void titleChanged() override;
  [[nodiscard]] std::optional<Rect> place() const override { return place_; }

  /// The title, less a glyph that the machine has no font for.
  [[nodiscard]] QString text() const;

  /// The path of the picture that stands in for that glyph; else empty.
  [[nodiscard]] QString picture() const;

 public Q_SLOTS:
  // Names are those of the interface. The place is the button's, in pixels of the display.
  /// The button was clicked.
  void Activate(int x, int y, int width, int height);
  /// The menu is about to be asked for there.
  void Place(int x, int y, int width, int height);

 private:
  void tell(StatusItemClick::Button button) const;

  QDBusConnection connection_;
  const ItemContent& content_;
  const GlyphPictures& pictures_;
  NotifierMenu menu_;
  std::optional<Rect> place_;
};

}  // namespace Hilalor::Desktop
