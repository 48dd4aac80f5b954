#include "desktop/item/TrayWindow.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "desktop/XConnection.hpp"

namespace Hilalor {
namespace {

/// The height of icons in common trays; the tray makes of it what its bar has.
constexpr int kAskedHeight = 22;
constexpr std::chrono::seconds kPatience{1};
/// A bar that comes to look different tells of its colours or has its windows painted anew. One
/// that does neither is looked at every five minutes, by the titles that are told twice a minute:
/// each look waits for the display two times.
constexpr int kTitlesToALook = 10;
/// Between a text and its ground, of the 255 between white and black.
constexpr double kLeastContrast = 100;
const Ink kInkOnUnknown{Qt::white, QColor(0, 0, 0, 150)};

double contrast(const QColor& one, const QColor& other) {
  return std::abs(lightness(one) - lightness(other));
}

}  // namespace

TrayWindow::TrayWindow(SystemTray& tray, RunLoop& loop, const ItemContent& content,
                       const ItemPainter& painter, std::function<void()> refused)
    : tray_(tray),
      loop_(loop),
      refused_(std::move(refused)),
      isTransparent_(tray.isTransparent()),
      trayText_(tray.textColour()),
      face_(content, painter,
            isTransparent_ ? ItemFace::Ground::transparent : ItemFace::Ground::opaque),
      askedWidth_(face_.naturalWidth(kAskedHeight)) {
  face_.setPlaceFinder([this] { return placeInTray(); });
  // Trays remember the items they took in by this name, which must not be another every time.
  face_.setWindowTitle(QStringLiteral("Hilalor"));
  face_.resize(askedWidth_, kAskedHeight);
  window_ = tray_.dock(static_cast<xcb_window_t>(face_.winId()));
  face_.windowHandle()->installEventFilter(this);
  embedded_ = tray_.embedded.subscribe([this] { show(); });
  expelled_ = tray_.expelled.subscribe([this] { refuse(); });
  coloursChanged_ = tray_.coloursChanged.subscribe([this] {
    trayText_ = tray_.textColour();
    matchBar();
    // The bar itself may be painted in its new colours only now.
    secondLook_ = loop_.once(kPatience, [this] { matchBar(); });
  });
  patience_ = loop_.once(kPatience, [this] {
    if (!window_->isOnScreen()) return refuse();
    // By now the bar is painted too.
    matchBar();
  });
}

TrayWindow::~TrayWindow() = default;

void TrayWindow::titleChanged() {
  face_.titleChanged();
  askForRoom();
  lookAround();
}

void TrayWindow::lookAround() {
  if (++titlesTold_ % kTitlesToALook == 0) matchBar();
}

bool TrayWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Expose) {
    // The face has the new size only after this event.
    QMetaObject::invokeMethod(this, &TrayWindow::useRoomGiven, Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

void TrayWindow::show() {
  // Only now: a window shown before the tray has it is a stray window on the screen.
  face_.titleChanged();
  face_.show();
  window_->tell(DockedWindow::Wish::shown);
  askForRoom();
}

void TrayWindow::askForRoom() {
  const int natural = face_.naturalWidth(face_.height());
  askedWidth_ = static_cast<int>(std::ceil(natural / stretch_));
  const double scale = face_.devicePixelRatioF();
  window_->askForSize((QSizeF(askedWidth_, kAskedHeight) * scale).toSize());
}

void TrayWindow::useRoomGiven() {
  const int natural = face_.naturalWidth(face_.height());
  stretch_ = std::max(1.0, static_cast<double>(face_.width()) / askedWidth_);
  const int better = static_cast<int>(std::ceil(natural / stretch_));
  // A pixel is rounding on the tray's side; following it would go on for ever.
  if (std::abs(better - askedWidth_) > 1) askForRoom();
  matchBar();
}

void TrayWindow::matchBar() {
  const auto bar = lookAtBar();
  if (!bar) {
    face_.setInk(trayText_ ? Ink{*trayText_, std::nullopt} : kInkOnUnknown);
    return;
  }
  const QColor ground = meanColour(*bar);
  // Trays are known to tell a colour of another theme than their bar's.
  const bool canBeRead = trayText_ && contrast(*trayText_, ground) >= kLeastContrast;
  face_.setInk(canBeRead ? Ink{*trayText_, std::nullopt} : Ink::on(ground));
}

std::optional<QImage> TrayWindow::lookAtBar() {
  const double scale = face_.devicePixelRatioF();
  const QSize size = face_.size() * scale;
  if (isTransparent_) return window_->leftEnd(size.height());
  auto behind = window_->backdrop(size);
  if (behind) {
    behind->setDevicePixelRatio(scale);
    face_.setBackdrop(*behind);
  }
  return behind;
}

std::optional<QRect> TrayWindow::placeInTray() const {
  const auto corner = window_ && window_->isOnScreen() ? window_->place() : std::nullopt;
  if (!corner) return std::nullopt;
  // Qt takes the window for one of the main screen, whatever screen the tray is on.
  const QSizeF native = QSizeF(face_.size()) * face_.devicePixelRatioF();
  const auto [at, size] = logicalRect({*corner, native});
  const QRect found = QRectF(at.x, at.y, size.width, size.height).toRect();
  // Trays put what they hide outside the screen.
  return QGuiApplication::screenAt(found.center()) != nullptr ? std::optional(found) : std::nullopt;
}

void TrayWindow::refuse() {
  if (const auto refused = std::exchange(refused_, nullptr)) refused();
}

}  // namespace Hilalor
