#include "desktop/item/ItemKind.hpp"

#include <gtest/gtest.h>

namespace Hilalor::Desktop {
namespace {

using Notifier = BarHosts::Notifier;

TEST(ItemKind, TakesTheBestHostThereIs) {
  const struct {
    const char* about;
    BarHosts hosts;
    ItemKind expected;
  } cases[] = {
      {"our own extension goes before all else",
       {.shellExtension = true,
        .systemTray = true,
        .notifier = Notifier::present,
        .prefersNotifier = true},
       ItemKind::shell},
      {"a tray does not wait for the bus", {.systemTray = true}, ItemKind::trayWindow},
      {"a tray goes before D-Bus",
       {.systemTray = true, .notifier = Notifier::present},
       ItemKind::trayWindow},
      {"no tray", {.notifier = Notifier::present}, ItemKind::notifier},
      {"a desktop that draws labels",
       {.systemTray = true, .notifier = Notifier::present, .prefersNotifier = true},
       ItemKind::notifier},
      {"it may still answer",
       {.systemTray = true, .notifier = Notifier::unknown, .prefersNotifier = true},
       ItemKind::none},
      {"it has none after all",
       {.systemTray = true, .notifier = Notifier::absent, .prefersNotifier = true},
       ItemKind::trayWindow},
      {"a bar may still come", {.notifier = Notifier::absent}, ItemKind::none},
      {"none has come", {.notifier = Notifier::absent, .stripIsDue = true}, ItemKind::strip},
      {"a bar has come after all",
       {.notifier = Notifier::present, .stripIsDue = true},
       ItemKind::notifier},
  };
  for (const auto& [about, hosts, expected] : cases) {
    SCOPED_TRACE(about);
    EXPECT_EQ(bestKind(hosts), expected);
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
