#include "desktop/item/LinuxStatusItem.hpp"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "desktop/display/DisplayKind.hpp"
#include "desktop/item/ItemStrip.hpp"
#include "desktop/item/NotifierItem.hpp"
#include "desktop/item/ShellItem.hpp"
#include "desktop/item/TrayWindow.hpp"

namespace Hilalor::Desktop {
namespace {

/// On a desktop, a bar that is starting, or starting again, has this long before the strip shows.
constexpr std::chrono::seconds kWaitForBar{3};
/// And this long where there is no place for a strip.
constexpr std::chrono::seconds kWaitUnseen{5};

constexpr const char* kGnomeAdvice =
    "For a place in the top bar, switch on \"Hilalor\" in GNOME's Extensions.";
constexpr const char* kNowhereAdvice =
    "No bar here shows Hilalor. Start it again to open this calendar.";

/// Known by the desktop's name before the bus has told which bar there is.
bool desktopPrefersNotifier() {
  static constexpr std::array kDesktops = {"GNOME", "Unity", "KDE", "LXQt", "X-Cinnamon"};
  return std::ranges::any_of(kDesktops, isDesktop);
}

BarHosts::Notifier notifierOf(NotifierHost::State state) {
  switch (state) {
    case NotifierHost::State::unknown:
      return BarHosts::Notifier::unknown;
    case NotifierHost::State::absent:
      return BarHosts::Notifier::absent;
    case NotifierHost::State::present:
      return BarHosts::Notifier::present;
  }
  return BarHosts::Notifier::unknown;
}

}  // namespace

LinuxStatusItem::LinuxStatusItem(RunLoop& loop, ShellExtension& shell, SystemTray* tray,
                                 NotifierHost& notifier, const ItemPainter& painter,
                                 const GlyphPictures& pictures, DefaultsStore& defaults)
    : loop_(loop),
      shell_(shell),
      tray_(tray),
      notifier_(notifier),
      painter_(painter),
      pictures_(pictures),
      defaults_(defaults) {
  shellChanged_ = shell_.changed.subscribe([this] { shellChanged(); });
  if (tray_ != nullptr) trayChanged_ = tray_->changed.subscribe([this] { trayChanged(); });
  notifierChanged_ = notifier_.changed.subscribe([this] { notifierChanged(); });
  // On the next pass the item has its title and its menu.
  firstChoice_ = loop_.once(Seconds(0), [this] { choose(); });
}

LinuxStatusItem::~LinuxStatusItem() = default;

void LinuxStatusItem::setUnseenHandler(std::function<void()> handler) {
  unseen_ = std::move(handler);
}

std::optional<Rect> LinuxStatusItem::place() const {
  return presence_ ? presence_->place() : std::nullopt;
}

std::optional<std::string> LinuxStatusItem::advice() const {
  const bool isInBar = kind_ != ItemKind::none && kind_ != ItemKind::strip;
  if (isInBar) return std::nullopt;
  if (isDesktop("GNOME")) return kGnomeAdvice;
  // A strip shows itself.
  return kind_ == ItemKind::none ? std::optional<std::string>(kNowhereAdvice) : std::nullopt;
}

void LinuxStatusItem::setTitle(const ItemTitle& title) {
  if (title == content_.title) {
    if (presence_) presence_->lookAround();
    return;
  }
  content_.title = title;
  if (presence_) presence_->titleChanged();
}

void LinuxStatusItem::setAction(std::function<void(const StatusItemClick&)> action) {
  content_.action = std::move(action);
}

void LinuxStatusItem::setContextMenu(Menu menu) {
  content_.menu = std::move(menu);
}

void LinuxStatusItem::setHostedMenu(Menu menu) {
  content_.hostedMenu = std::move(menu);
}

BarHosts LinuxStatusItem::hosts() const {
  static const bool desktopPrefers = desktopPrefersNotifier();
  const bool isThere = notifier_.state() == NotifierHost::State::present;
  return {.shellExtension = shell_.isThere(),
          .systemTray = tray_ != nullptr && tray_->isThere() && !trayRefuses_,
          .notifier = notifierOf(notifier_.state()),
          .prefersNotifier = desktopPrefers || (isThere && notifier_.traits().outdoesTray),
          .stripIsDue = stripIsDue_ || isAlone()};
}

/// Whether the screen is bare: no bar, and no desktop that may be about to start one.
bool LinuxStatusItem::isAlone() const {
  return notifier_.state() == NotifierHost::State::absent && tray_ != nullptr &&
         !tray_->isThere() && !tray_->hasWindowManager();
}

void LinuxStatusItem::shellChanged() {
  if (kind_ == ItemKind::shell) show(ItemKind::none);
  choose();
}

void LinuxStatusItem::trayChanged() {
  trayRefuses_ = false;
  // The window has gone with its tray, or belongs to the one before.
  if (kind_ == ItemKind::trayWindow) show(ItemKind::none);
  choose();
}

void LinuxStatusItem::notifierChanged() {
  if (kind_ == ItemKind::notifier) show(ItemKind::none);
  choose();
}

void LinuxStatusItem::choose() {
  const auto kind = bestKind(hosts());
  if (kind != kind_) show(kind);
  if (kind == ItemKind::none) return waitForBar();
  waitForBar_.reset();
  stripIsDue_ = kind == ItemKind::strip;
}

void LinuxStatusItem::waitForBar() {
  if (waitForBar_) return;
  // Wayland has no place for a strip.
  if (displayKind() == DisplayKind::wayland) {
    waitForBar_ = loop_.once(kWaitUnseen, [this] {
      if (const auto told = std::exchange(unseen_, nullptr)) told();
    });
    return;
  }
  waitForBar_ = loop_.once(kWaitForBar, [this] {
    stripIsDue_ = true;
    choose();
  });
}

void LinuxStatusItem::show(ItemKind kind) {
  // The one before goes first: the tray watches one window.
  presence_.reset();
  kind_ = kind;
  switch (kind) {
    case ItemKind::none:
      return;
    case ItemKind::shell:
      presence_ = std::make_unique<ShellItem>(shell_, content_, pictures_);
      return;
    case ItemKind::trayWindow:
      presence_ = std::make_unique<TrayWindow>(*tray_, loop_, content_, painter_, [this] {
        trayRefuses_ = true;
        choose();
      });
      return;
    case ItemKind::notifier:
      presence_ = std::make_unique<NotifierItem>(notifier_, content_, painter_, pictures_);
      return;
    case ItemKind::strip:
      presence_ = std::make_unique<ItemStrip>(content_, painter_, defaults_);
      return;
  }
}

}  // namespace Hilalor::Desktop
