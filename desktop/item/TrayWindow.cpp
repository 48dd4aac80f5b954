#include "desktop/item/TrayWindow.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

/// The height of icons in common trays, in device pixels; the tray makes of it what its bar has.
constexpr int kUsualHeight = 22;
/// Of the natural width, what a title can do without.
constexpr int kSpareAir = 4;
/// Columns at its ends that a whole title leaves free.
constexpr int kFreeAtEnds = 2;
/// What is seen of a window is a square from so many pixels on.
constexpr int kSmallestSquare = 8;
constexpr std::chrono::seconds kPatience{1};
/// A bar that comes to look different tells of its colours or has its windows painted anew, and one
/// that gives another room has them resized. One that does neither is looked at every five minutes,
/// by the titles that are told twice a minute: a look waits for the display some twenty times, with
/// two threads.
constexpr int kTitlesToALook = 10;
/// Between a text and its ground, of the 255 between white and black.
constexpr double kLeastContrast = 100;
const Ink kInkOnUnknown{Qt::white, QColor(0, 0, 0, 150)};

double contrast(const QColor& one, const QColor& other) {
  return std::abs(lightness(one) - lightness(other));
}

bool isSeen(const DockedPlace& place) {
  const QSize seen = place.visible().size();
  return seen.width() >= kSmallestSquare && seen.height() >= kSmallestSquare;
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
      asked_(sizeToAskFor(kUsualHeight)) {
  face_.setPlaceFinder([this] { return placeInTray(); });
  face_.setShape(ItemFace::Shape::square);
  // Trays remember the items they took in by this name, which must not be another every time.
  face_.setWindowTitle(QStringLiteral("Hilalor"));
  face_.resize((QSizeF(asked_) / face_.devicePixelRatioF()).toSize());
  window_ = tray_.dock(static_cast<xcb_window_t>(face_.winId()), asked_);
  face_.windowHandle()->installEventFilter(this);
  embedded_ = tray_.embedded.subscribe([this] { show(); });
  expelled_ = tray_.expelled.subscribe([this] { refuse(); });
  coloursChanged_ = tray_.coloursChanged.subscribe([this] {
    trayText_ = tray_.textColour();
    matchBar();
    // The bar itself may be painted in its new colours only now.
    secondLook_ = loop_.once(kPatience, [this] { matchBar(); });
  });
  waitForAnswer();
}

TrayWindow::~TrayWindow() = default;

void TrayWindow::titleChanged() {
  face_.titleChanged();
  seen_ ? useRoom(*seen_) : lookAtRoom();
  lookAround();
}

void TrayWindow::lookAround() {
  if (++titlesTold_ % kTitlesToALook != 0) return;
  lookAtRoom();
  matchBar();
}

bool TrayWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Expose) lookAtRoomLater();
  return QObject::eventFilter(watched, event);
}

void TrayWindow::show() {
  // Some trays have given the window their own height by now.
  const auto size = window_->size();
  if (size && size->height() >= kSmallestSquare) asked_ = sizeToAskFor(size->height());
  // Only now: a window shown before the tray has it is a stray window on the screen.
  face_.titleChanged();
  face_.show();
  // Qt has put its own size and hints in place of ours.
  window_->askForSize(asked_);
}

QSize TrayWindow::sizeToAskFor(int height) const {
  const double scale = face_.devicePixelRatioF();
  const int natural = face_.naturalWidth(static_cast<int>(std::lround(height / scale)));
  return {static_cast<int>(std::ceil(natural * scale)), height};
}

void TrayWindow::askForRoom(const DockedPlace& place) {
  // In the tray's own height: some trays scale what they are asked for to that.
  const QSize size = sizeToAskFor(place.visible().height());
  if (size == asked_) return;
  asked_ = size;
  window_->askForSize(size);
  waitForAnswer();
}

void TrayWindow::waitForAnswer() {
  patience_ = loop_.once(kPatience, [this] { judge(); });
}

void TrayWindow::lookAtRoomLater() {
  if (std::exchange(isToLookAtRoom_, true)) return;
  // The face has its new size only after the display's event.
  const auto look = [this] {
    isToLookAtRoom_ = false;
    lookAtRoom();
    matchBar();
  };
  QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void TrayWindow::lookAtRoom() {
  seen_ = window_->place();
  // A tray that is moving its windows has some out of sight.
  if (seen_ && !isSeen(*seen_)) seen_.reset();
  seen_ ? useRoom(*seen_) : waitForAnswer();
}

void TrayWindow::useRoom(const DockedPlace& place) {
  if (place.room.size() != refusingRoom_) refusingRoom_.reset();
  if (!refusingRoom_) askForRoom(place);
  draw(place);
}

/// By now the tray has answered with the room that it gave.
void TrayWindow::judge() {
  patience_.reset();
  const auto place = window_->place();
  seen_ = place;
  if (place ? !isSeen(*place) : !wasShown_) return refuse();
  if (!place) return;
  wasShown_ = true;
  if (!refusingRoom_) askForRoom(*place);
  if (!patience_ && !holdsWholeTitle(*place)) {
    refusingRoom_ = place->room.size();
    window_->resize(place->visible().size());
  }
  draw(*place);
  // By now the bar is painted too.
  matchBar();
}

bool TrayWindow::holdsWholeTitle(const DockedPlace& place) const {
  const QSize seen = place.visible().size();
  const double spare = kSpareAir * face_.devicePixelRatioF();
  return sizeToAskFor(seen.height()).width() <= seen.width() + spare;
}

void TrayWindow::draw(const DockedPlace& place) {
  // A title that was whole stays so while the tray makes room for a longer one.
  const bool isWaiting = patience_ && face_.shape() == ItemFace::Shape::whole;
  const bool isWhole = isWaiting || holdsWholeTitle(place);
  face_.setShape(isWhole ? ItemFace::Shape::whole : ItemFace::Shape::square);
  face_.setVisiblePart(place.visible().translated(-place.window.topLeft()));
}

void TrayWindow::matchBar() {
  const auto ground = lookAtBar();
  if (!ground) {
    face_.setInk(trayText_ ? Ink{*trayText_, std::nullopt} : kInkOnUnknown);
    return;
  }
  // Trays are known to tell a colour of another theme than their bar's.
  const bool canBeRead = trayText_ && contrast(*trayText_, *ground) >= kLeastContrast;
  face_.setInk(canBeRead ? Ink{*trayText_, std::nullopt} : Ink::on(*ground));
}

std::optional<QColor> TrayWindow::lookAtBar() {
  const auto place = window_->place();
  if (!place) return std::nullopt;
  if (isTransparent_) {
    const bool isWhole = face_.shape() == ItemFace::Shape::whole;
    return window_->colourAround(*place, isWhole ? kFreeAtEnds : 0);
  }
  auto behind = window_->backdrop(place->window.size());
  if (!behind) return std::nullopt;
  behind->setDevicePixelRatio(face_.devicePixelRatioF());
  face_.setBackdrop(*behind);
  return meanColour(*behind);
}

std::optional<QRect> TrayWindow::placeInTray() const {
  const auto place = window_ ? window_->place() : std::nullopt;
  if (!place || place->isBarHidden() || !isSeen(*place)) return std::nullopt;
  // Qt takes the window for one of the main screen, whatever screen the tray is on.
  const auto [at, size] = logicalRect(place->visible());
  return QRectF(at.x, at.y, size.width, size.height).toRect();
}

void TrayWindow::refuse() {
  if (const auto refused = std::exchange(refused_, nullptr)) refused();
}

}  // namespace Hilalor::Desktop
