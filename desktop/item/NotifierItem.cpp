#include "desktop/item/NotifierItem.hpp"

#include <QCursor>
#include <QGuiApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>
#include <chrono>

#include "desktop/display/DisplayKind.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenuPath = QStringLiteral("/MenuBar");
constexpr auto kExported = QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots |
                           QDBusConnection::ExportAllSignals;

/// A bar that has lost the item by then gets it again, so many times.
constexpr std::chrono::seconds kTimeToEnter{4};
constexpr int kLooks = 2;

/// The sizes bars draw icons at, ordinary and on dense screens; each is drawn for itself.
constexpr int kSquareSides[] = {16, 22, 24, 32, 48};
constexpr int kWideScales[] = {1, 2};

/// Compositors do not tell programs where the pointer is.
std::optional<Point> pointerPlace() {
  if (displayKind() != DisplayKind::x11) return std::nullopt;
  const QPoint pointer = QCursor::pos();
  return Point{static_cast<double>(pointer.x()), static_cast<double>(pointer.y())};
}

}  // namespace

NotifierItem::NotifierItem(NotifierHost& host, const ItemContent& content,
                           const ItemPainter& painter, const GlyphPictures& pictures)
    : host_(host),
      drawing_(host.traits().drawing),
      content_(content),
      painter_(painter),
      pictures_(pictures),
      dbusMenu_(content.hostedMenu, [this] { tell(StatusItemClick::Button::right); }) {
  registerNotifierTypes();
  host_.bus().openAnother([item = QPointer(this)](const QDBusConnection& connection) {
    if (item) return item->appearOn(connection);
    QDBusConnection::disconnectFromBus(connection.name());
  });
}

NotifierItem::~NotifierItem() {
  if (connection_) QDBusConnection::disconnectFromBus(connection_->name());
}

void NotifierItem::appearOn(const QDBusConnection& connection) {
  connection_ = connection;
  connection_->registerObject(kItemPath, this, kExported);
  connection_->registerObject(kMenuPath, &dbusMenu_, kExported);
  enter(kLooks);
}

void NotifierItem::enter(int looks) {
  host_.registerItem(connection_->baseService());
  if (looks == 0) return;
  QTimer::singleShot(kTimeToEnter, this, [this, looks] {
    host_.lookForItem(connection_->baseService(), this, [this, looks] { enter(looks - 1); });
  });
}

void NotifierItem::titleChanged() {
  Q_EMIT NewTitle();
  Q_EMIT NewToolTip();
  Q_EMIT XAyatanaNewLabel(label(), labelGuide());
  Q_EMIT NewIcon();
}

QString NotifierItem::iconName() const {
  if (drawing_ != NotifierDrawing::label) return {};
  const auto glyph = content_.title.glyph;
  return pictures_.file(isGlyphLeftToThePicture() ? glyph : TitleGlyph::none);
}

QList<NotifierPixmap> NotifierItem::iconPixmap() const {
  QList<NotifierPixmap> pixmaps;
  switch (drawing_) {
    case NotifierDrawing::label:
      break;
    case NotifierDrawing::wide:
      for (const int scale : kWideScales) {
        pixmaps.append(NotifierPixmap::of(painter_.widePicture(content_.title, scale)));
      }
      break;
    case NotifierDrawing::square:
      for (const int side : kSquareSides) {
        pixmaps.append(NotifierPixmap::of(painter_.compactPicture(content_.title, side)));
      }
      break;
  }
  return pixmaps;
}

QDBusObjectPath NotifierItem::menuPath() const {
  return QDBusObjectPath(kMenuPath);
}

QString NotifierItem::label() const {
  return isGlyphLeftToThePicture() ? content_.titleWords() : content_.wholeTitle();
}

QString NotifierItem::labelGuide() const {
  static const QRegularExpression digits(QStringLiteral("\\d"));
  return label().replace(digits, QStringLiteral("0"));
}

void NotifierItem::Activate(int, int) {
  tell(StatusItemClick::Button::left);
}

// On bars that open the menu with the left button, the middle one is the way to the item itself.
void NotifierItem::SecondaryActivate(int, int) {
  tell(StatusItemClick::Button::left);
}

void NotifierItem::XAyatanaSecondaryActivate(uint) {
  tell(StatusItemClick::Button::left);
}

void NotifierItem::ContextMenu(int, int) {
  tell(StatusItemClick::Button::right);
  ownMenu_.open(content_.menu, std::nullopt, content_.appearance);
}

void NotifierItem::tell(StatusItemClick::Button button) const {
  content_.tell({button, pointerPlace()});
}

bool NotifierItem::isGlyphLeftToThePicture() const {
  return drawing_ == NotifierDrawing::label && GlyphPictures::standInFor(content_.title.glyph);
}

}  // namespace Hilalor::Desktop
