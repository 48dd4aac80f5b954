#include "desktop/panel/LinuxPanel.hpp"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <cmath>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/display/WindowAppearance.hpp"
#include "desktop/panel/PanelRoom.hpp"
#include "desktop/panel/PanelWindow.hpp"
#include "ui/View.hpp"

namespace Hilalor::Desktop {

LinuxPanel::LinuxPanel(std::unique_ptr<Ui::View> screen, std::function<void(Dismissal)> onDismiss)
    : screen_(screen.get()),
      onDismiss_(std::move(onDismiss)),
      window_(new PanelWindow(screen.release(), onDismiss_)),
      keyboard_(*window_) {
  // Where it is to be, and how high it may be, changes with what is free of the screen.
  for (const QScreen* one : QGuiApplication::screens())
    QObject::connect(one, &QScreen::availableGeometryChanged, screen_, &Ui::View::reportSizeAgain);
}

LinuxPanel::~LinuxPanel() {
  // The owner has gone. The window itself lives on to the end of this event.
  window_->disown();
  screen_->onWantedSize = nullptr;
  keyboard_.giveBack();
  window_->hide();
  window_->deleteLater();
}

Size LinuxPanel::fittingSize() const {
  const QSize size = screen_->sizeHint();
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void LinuxPanel::setGreatestHeight(double height) {
  // Where a pixel of Qt's is a fraction more than one of the screen, what is free is rounded up.
  const double ratio = window_->devicePixelRatioF();
  const int roundedUp = ratio == std::floor(ratio) ? 0 : 1;
  screen_->setGreatestHeight(static_cast<int>(height) - roundedUp);
}

bool LinuxPanel::isVisible() const {
  return window_->isVisible();
}

void LinuxPanel::setAppearance(Appearance appearance) {
  setWindowAppearance(*window_, appearance);
}

void LinuxPanel::setFrame(const Rect& frame) {
  const QRect wanted(QPointF(frame.origin.x, frame.origin.y).toPoint(),
                     QSizeF(frame.size.width, frame.size.height).toSize());
  window_->setFrame(room_ ? room_->clearOfAnnouncements(wanted).value_or(wanted) : wanted);
}

void LinuxPanel::makeRoomForAnnouncements() {
  const QRect frame = window_->frame();
  const auto clear = room_->clearOfAnnouncements(frame);
  if (clear && *clear != frame) window_->setFrame(*clear);
  if (!clear && onDismiss_) onDismiss_(Dismissal::toMakeRoom);
}

void LinuxPanel::orderFront(KeyboardAtOpening keyboard) {
  window_->show();
  window_->raise();
  const bool isX11 = displayKind() == DisplayKind::x11;
  if (!isX11 || keyboard == KeyboardAtOpening::taken) {
    keyboard_.rememberOwner();
    window_->activateWindow();
  }
  if (escape_) return;
  escape_ = std::make_unique<EscapeKey>([told = onDismiss_] {
    if (told) told(Dismissal::byEscape);
  });
  isX11 ? watchItsPlace() : watchItsKeyboard();
}

void LinuxPanel::watchItsPlace() {
  const auto makeRoom = [told = onDismiss_] {
    if (told) told(Dismissal::toMakeRoom);
  };
  room_ = std::make_unique<PanelRoom>(
      *window_, [this] { return window_->frame(); }, makeRoom,
      [this] { makeRoomForAnnouncements(); });
}

void LinuxPanel::watchItsKeyboard() {
  const auto close = [told = onDismiss_] {
    if (told) told(Dismissal::byDesktop);
  };
  focusLoss_ = std::make_unique<FocusLoss>(close);
  bareDesktop_ = BareDesktop::watch(close);
}

}  // namespace Hilalor::Desktop
