#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <optional>

#include "desktop/item/ItemMenu.hpp"
#include "desktop/item/ItemPainter.hpp"
#include "desktop/item/ItemPresence.hpp"
#include "desktop/item/NotifierHost.hpp"
#include "desktop/item/NotifierMenu.hpp"
#include "desktop/item/NotifierTypes.hpp"

namespace Hilalor::Desktop {

/// The item on D-Bus (StatusNotifierItem), drawn by the bar: as text where the bar draws labels,
/// else as a picture. Bars do not tell its place. It is there under the unique name of a connection
/// of its own: a bar forgets an item only with its name, and GNOME's loses, now and then, an item
/// with a name that was asked for.
class NotifierItem : public QObject, public ItemPresence {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
  Q_PROPERTY(QString Category READ category)
  Q_PROPERTY(QString Id READ id)
  Q_PROPERTY(QString Title READ title)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(int WindowId READ windowId)
  Q_PROPERTY(QString IconName READ iconName)
  Q_PROPERTY(QString IconThemePath READ nothing)
  Q_PROPERTY(QString IconAccessibleDesc READ title)
  Q_PROPERTY(QList<Hilalor::Desktop::NotifierPixmap> IconPixmap READ iconPixmap)
  Q_PROPERTY(QString OverlayIconName READ nothing)
  Q_PROPERTY(QList<Hilalor::Desktop::NotifierPixmap> OverlayIconPixmap READ noPixmap)
  Q_PROPERTY(QString AttentionIconName READ nothing)
  Q_PROPERTY(QString AttentionAccessibleDesc READ title)
  Q_PROPERTY(QString AttentionMovieName READ nothing)
  Q_PROPERTY(QList<Hilalor::Desktop::NotifierPixmap> AttentionIconPixmap READ noPixmap)
  Q_PROPERTY(Hilalor::Desktop::NotifierToolTip ToolTip READ toolTip)
  Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
  Q_PROPERTY(QDBusObjectPath Menu READ menuPath)
  Q_PROPERTY(QString XAyatanaLabel READ label)
  Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)
  Q_PROPERTY(uint XAyatanaOrderingIndex READ orderingIndex)

 public:
  /// The host must be present. All must outlive the item.
  NotifierItem(NotifierHost& host, const ItemContent& content, const ItemPainter& painter,
               const GlyphPictures& pictures);
  ~NotifierItem() override;

  void titleChanged() override;

  [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
  [[nodiscard]] QString id() const { return QStringLiteral("hilalor"); }
  [[nodiscard]] QString title() const { return content_.wholeTitle(); }
  [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
  [[nodiscard]] int windowId() const { return 0; }
  [[nodiscard]] QString iconName() const;
  [[nodiscard]] QList<NotifierPixmap> iconPixmap() const;
  [[nodiscard]] QString nothing() const { return {}; }
  [[nodiscard]] QList<NotifierPixmap> noPixmap() const { return {}; }
  /// Bars read it as markup.
  [[nodiscard]] NotifierToolTip toolTip() const {
    return {{}, {}, content_.wholeTitle().toHtmlEscaped(), {}};
  }
  [[nodiscard]] bool itemIsMenu() const { return false; }
  [[nodiscard]] QDBusObjectPath menuPath() const;
  [[nodiscard]] QString label() const;
  [[nodiscard]] QString labelGuide() const;
  [[nodiscard]] uint orderingIndex() const { return 0; }

 public Q_SLOTS:
  // Names are those of the interface; the places that bars give are not to be trusted.
  void Activate(int x, int y);
  void SecondaryActivate(int x, int y);
  void XAyatanaSecondaryActivate(uint timestamp);
  void ContextMenu(int x, int y);

 Q_SIGNALS:
  void NewTitle();
  void NewIcon();
  void NewToolTip();
  void NewStatus(const QString& status);
  void XAyatanaNewLabel(const QString& label, const QString& guide);

 private:
  void appearOn(const QDBusConnection& connection);
  void enter(int looks);
  void tell(StatusItemClick::Button button) const;
  [[nodiscard]] bool isGlyphLeftToThePicture() const;

  NotifierHost& host_;
  std::optional<QDBusConnection> connection_;  // None until the bus has let it in.
  NotifierDrawing drawing_;
  const ItemContent& content_;
  const ItemPainter& painter_;
  const GlyphPictures& pictures_;
  NotifierMenu dbusMenu_;
  ItemMenu ownMenu_;
};

}  // namespace Hilalor::Desktop
