#include "screens/settings/AboutCard.hpp"

#include <QUrl>

#include "rules/settings/ProgramFacts.hpp"
#include "ui/Containers.hpp"
#include "ui/Picture.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kSpacing = 14;
constexpr Insets kPadding{.top = 4, .bottom = 4};
constexpr int kIconSide = 44;
constexpr double kIconRadius = 10;
constexpr int kLineSpacing = 3;
constexpr TextStyle kNameStyle{.size = 14, .weight = QFont::DemiBold};
constexpr TextStyle kVersionStyle{.size = 11};
constexpr TextStyle kCreditStyle{.size = 12};
constexpr TextStyle kGreenStyle{.size = 12, .color = &Colors::accent};
constexpr int kCreditSpacing = 4;
constexpr Insets kUpdatePadding{.top = 8};

}  // namespace

AboutCard::AboutCard(const SettingsContext& context, Updater* updater, const QPixmap& appIcon)
    : SettingsPart(context) {
  setBody(updater != nullptr ? new Card({program(appIcon), updateButton(*updater)})
                             : new Card({program(appIcon)}));
}

QWidget* AboutCard::program(const QPixmap& appIcon) {
  auto* lines = column(
      {.spacing = kLineSpacing, .alignment = Qt::AlignLeft},
      {new Text(kNameStyle, QStringLiteral("Hilalor")),
       new Text(kVersionStyle, QStringLiteral("v") + QString::fromUtf8(kVersion)), creditLine()});
  const StackStyle style{.spacing = kSpacing, .padding = kPadding};
  if (appIcon.isNull()) return row(style, {lines});
  return row(style, {new Picture(appIcon, kIconSide, kIconRadius), lines});
}

QWidget* AboutCard::creditLine() {
  const QString site = QUrl(QString::fromUtf8(kWebSite)).host();
  if (site.isEmpty()) return new Text(kCreditStyle, QStringLiteral("By the Hilalor developers"));
  auto* link = new Button(
      {.text = site, .style = kGreenStyle},
      [workspace = context_.workspace] {
        if (workspace != nullptr) workspace->openWebPage(kWebSite);
      },
      ButtonLook::link);
  return row({.spacing = kCreditSpacing},
             {new Text(kCreditStyle, QStringLiteral("By the Hilalor developers,")), link,
              flexibleSpace()});
}

QWidget* AboutCard::updateButton(Updater& updater) {
  auto* button = new Button({.icon = Icon::circlingArrows,
                             .text = QStringLiteral("Check for Updates"),
                             .style = kGreenStyle},
                            [&updater] { updater.checkForUpdates(); });
  return column({.padding = kUpdatePadding, .alignment = Qt::AlignLeft}, {button});
}

}  // namespace Hilalor::Screens
