#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Application.hpp"
#include "platform/LoginEntry.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Updater.hpp"
#include "platform/Workspace.hpp"

namespace Hilalor {

class FakeApplication final : public Application {
 public:
  void terminate() override { ++terminations; }
  void setReopenHandler(std::function<void()> handler) override { reopen = std::move(handler); }
  void setSettingsHandler(std::function<void()>) override {}
  void setResumeHandler(std::function<void()> handler) override { resume = std::move(handler); }

  int terminations = 0;
  std::function<void()> reopen;
  std::function<void()> resume;
};

/// Remembers what the item shows; outlives the item that the bar gave out.
class FakeStatusBar final : public StatusBar, public StatusButton {
 public:
  [[nodiscard]] std::unique_ptr<StatusItem> makeItem() override {
    return std::make_unique<Item>(*this);
  }

  void setTitle(const ItemTitle& title) override { titles.push_back(title.whole()); }
  void setAction(std::function<void(const StatusItemClick&)> newAction) override {
    action = std::move(newAction);
  }
  void setContextMenu(Menu newMenu) override { menu = std::move(newMenu); }
  void setHostedMenu(Menu newMenu) override { hostedMenu = std::move(newMenu); }
  void setAppearance(Appearance newAppearance) override { appearance = newAppearance; }

  [[nodiscard]] const std::string& title() const { return titles.back(); }

  bool hasButton = true;
  std::optional<Rect> place;
  std::optional<std::string> advice;
  std::vector<std::string> titles;
  std::function<void(const StatusItemClick&)> action;
  std::function<void()> unseen;
  Menu menu;
  Menu hostedMenu;
  Appearance appearance = Appearance::system;

 private:
  struct Item final : StatusItem {
    explicit Item(FakeStatusBar& shown) : bar(shown) {}
    [[nodiscard]] StatusButton* button() override { return bar.hasButton ? &bar : nullptr; }
    [[nodiscard]] std::optional<Rect> place() const override { return bar.place; }
    [[nodiscard]] std::optional<std::string> advice() const override { return bar.advice; }
    void setUnseenHandler(std::function<void()> handler) override {
      bar.unseen = std::move(handler);
    }
    FakeStatusBar& bar;
  };
};

class FakeWorkspace final : public Workspace {
 public:
  void openSettings(SettingsPane pane) override { panes.push_back(pane); }
  void openWebPage(const std::string& address) override { pages.push_back(address); }

  std::vector<SettingsPane> panes;
  std::vector<std::string> pages;
};

class FakeLoginEntry final : public LoginEntry {
 public:
  [[nodiscard]] bool isOn() const override { return on; }
  void setOn(bool wanted) override { on = wanted; }

  bool on = true;
};

class FakeUpdater final : public Updater {
 public:
  void start() override { ++starts; }
  void checkForUpdates() override { ++checks; }

  int starts = 0;
  int checks = 0;
};

}  // namespace Hilalor
