#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/MouseMonitor.hpp"
#include "platform/Panel.hpp"
#include "platform/ScreenService.hpp"
#include "platform/Surfaces.hpp"

namespace Hilalor {

/// Remembers the panel and the settings window that are open.
class FakeSurfaces final : public Surfaces {
 public:
  struct FakePanel final : Panel {
    explicit FakePanel(FakeSurfaces& owner) : surfaces(owner) { surfaces.panel = this; }
    ~FakePanel() override {
      if (surfaces.panel == this) surfaces.panel = nullptr;
    }
    [[nodiscard]] Size fittingSize() const override { return surfaces.panelSize; }
    void setGreatestHeight(double height) override { greatestHeight = height; }
    [[nodiscard]] bool isVisible() const override { return isInFront; }
    void setAppearance(Appearance newAppearance) override { appearance = newAppearance; }
    void setFrame(const Rect& newFrame) override { frame = newFrame; }
    void orderFront(KeyboardAtOpening newKeyboard) override {
      isInFront = true;
      keyboard = newKeyboard;
    }

    FakeSurfaces& surfaces;
    CalendarPanelEvents events;
    std::optional<Advice> advice;
    Rect frame;
    double greatestHeight = 0;
    Appearance appearance = Appearance::system;
    KeyboardAtOpening keyboard = KeyboardAtOpening::leftWhereItIs;
    bool isInFront = false;
  };

  struct FakeWindow final : Window {
    explicit FakeWindow(FakeSurfaces& owner) : surfaces(owner) { surfaces.settings = this; }
    ~FakeWindow() override { surfaces.settings = nullptr; }
    void setAppearance(Appearance newAppearance) override { appearance = newAppearance; }
    void makeKeyAndOrderFront() override { ++timesInFront; }

    FakeSurfaces& surfaces;
    std::function<void()> onWillClose;
    Appearance appearance = Appearance::system;
    int timesInFront = 0;
  };

  [[nodiscard]] std::unique_ptr<Panel> makeCalendarPanel(CalendarPanelEvents events,
                                                         std::optional<Advice> advice) override {
    ++panelsMade;
    auto made = std::make_unique<FakePanel>(*this);
    made->events = std::move(events);
    made->advice = std::move(advice);
    return made;
  }

  [[nodiscard]] std::unique_ptr<Window> makeSettingsWindow(
      Updater*, std::function<void()> onWillClose) override {
    ++windowsMade;
    auto made = std::make_unique<FakeWindow>(*this);
    made->onWillClose = std::move(onWillClose);
    return made;
  }

  [[nodiscard]] std::unique_ptr<Window> makePlaceWindow(
      std::function<void()> onWillClose) override {
    ++mapsMade;
    auto made = std::make_unique<FakeWindow>(*this);
    made->onWillClose = std::move(onWillClose);
    return made;
  }

  Size panelSize{260, 500};
  FakePanel* panel = nullptr;
  FakeWindow* settings = nullptr;
  int panelsMade = 0;
  int windowsMade = 0;
  int mapsMade = 0;
};

class FakeScreens final : public ScreenService {
 public:
  [[nodiscard]] std::vector<Screen> all() const override { return screens; }

  std::vector<Screen> screens{
      {.frame = {{0, 0}, {1280, 800}}, .visibleFrame = {{0, 24}, {1280, 776}}}};
};

/// Presses and releases over other programs, told to whoever watches.
class FakeMouse final : public MouseMonitor {
 public:
  [[nodiscard]] std::unique_ptr<EventMonitor> addGlobalMonitor(Handlers handlers) override {
    if (!isAllowed) return nullptr;
    return std::make_unique<Watch>(watchers_, std::move(handlers));
  }

  void press(Point place) {
    for (const auto& handlers : std::vector(watchers_))
      if (handlers->onPress) handlers->onPress(place);
  }

  void release() {
    for (const auto& handlers : std::vector(watchers_))
      if (handlers->onRelease) handlers->onRelease();
  }

  [[nodiscard]] bool isWatched() const { return !watchers_.empty(); }

  bool isAllowed = true;

 private:
  using Watchers = std::vector<std::shared_ptr<Handlers>>;

  struct Watch final : EventMonitor {
    Watch(Watchers& all, Handlers handlers)
        : watchers(all), kept(std::make_shared<Handlers>(std::move(handlers))) {
      watchers.push_back(kept);
    }
    ~Watch() override { std::erase(watchers, kept); }
    Watchers& watchers;
    std::shared_ptr<Handlers> kept;
  };

  Watchers watchers_;
};

}  // namespace Hilalor
