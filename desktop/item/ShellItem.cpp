#include "desktop/item/ShellItem.hpp"

#include <QDBusMessage>
#include <QDBusPendingCall>

#include "desktop/display/XConnection.hpp"
#include "desktop/session/BusCall.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kName = QStringLiteral("org.hilalor.Hilalor.Item");
const QString kInterface = QStringLiteral("org.hilalor.Item");
const QString kItemPath = QStringLiteral("/org/hilalor/Hilalor/Item");
const QString kMenuPath = QStringLiteral("/org/hilalor/Hilalor/Menu");

/// In a name request: do not wait in line where another program has the name.
constexpr uint kDoNotQueue = 4;

}  // namespace

ShellItem::ShellItem(ShellExtension& extension, const ItemContent& content,
                     const GlyphPictures& pictures)
    : connection_(*extension.bus().connection()),
      content_(content),
      pictures_(pictures),
      menu_(content.hostedMenu, [this] { tell(StatusItemClick::Button::right); }) {
  registerNotifierTypes();
  connection_.registerObject(
      kItemPath, this, QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots);
  connection_.registerObject(kMenuPath, &menu_,
                             QDBusConnection::ExportAllProperties |
                                 QDBusConnection::ExportAllSlots |
                                 QDBusConnection::ExportAllSignals);
  connection_.asyncCall(busCall("RequestName", {kName, kDoNotQueue}));
}

ShellItem::~ShellItem() {
  connection_.unregisterObject(kItemPath);
  connection_.unregisterObject(kMenuPath);
  connection_.asyncCall(busCall("ReleaseName", {kName}));
}

void ShellItem::titleChanged() {
  auto told =
      QDBusMessage::createSignal(kItemPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                 QStringLiteral("PropertiesChanged"));
  told << kInterface
       << QVariantMap{{QStringLiteral("Text"), text()}, {QStringLiteral("Picture"), picture()}}
       << QStringList();
  connection_.send(told);
}

QString ShellItem::text() const {
  return picture().isEmpty() ? content_.wholeTitle() : content_.titleWords();
}

QString ShellItem::picture() const {
  const auto glyph = content_.title.glyph;
  return GlyphPictures::standInFor(glyph) ? pictures_.file(glyph) : QString();
}

void ShellItem::Activate(int x, int y, int width, int height) {
  Place(x, y, width, height);
  tell(StatusItemClick::Button::left);
}

void ShellItem::Place(int x, int y, int width, int height) {
  place_ = logicalRect(QRectF(x, y, width, height));
}

void ShellItem::tell(StatusItemClick::Button button) const {
  StatusItemClick click{.button = button, .pointer = std::nullopt};
  if (place_) {
    click.pointer = Point{place_->origin.x + place_->size.width / 2,
                          place_->origin.y + place_->size.height / 2};
  }
  content_.tell(click);
}

}  // namespace Hilalor::Desktop
