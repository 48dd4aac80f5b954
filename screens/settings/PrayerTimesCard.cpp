#include "screens/settings/PrayerTimesCard.hpp"

#include "rules/prayer/PrayerTimesCalculator.hpp"
#include "screens/settings/AlertSettings.hpp"
#include "screens/settings/LocationSettings.hpp"
#include "ui/Containers.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kLocationSpacing = 8;
constexpr int kOfferSpacing = 4;
constexpr TextStyle kOfferStyle{.size = 11, .color = &Colors::secondary};

std::vector<PrayerCalculationMethod> methods() {
  constexpr auto kAll = allCases<PrayerCalculationMethod>();
  return {kAll.begin(), kAll.end()};
}

QString methodName(PrayerCalculationMethod method) {
  const std::string_view name = displayName(method);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

/// As a sentence names it.
QString countryName(const std::string& country) {
  const bool takesArticle = country.starts_with("United ") || country == "Netherlands";
  return (takesArticle ? "the " : "") + QString::fromStdString(country);
}

std::vector<AsrCalculation> schools() {
  return {AsrCalculation::shafi, AsrCalculation::hanafi};
}

QString schoolName(AsrCalculation school) {
  return school == AsrCalculation::shafi ? QStringLiteral("Shafi'i / Hanbali / Maliki")
                                         : QStringLiteral("Hanafi");
}

}  // namespace

PrayerTimesCard::PrayerTimesCard(const SettingsContext& context) : SettingsPart(context) {
  setBody(
      new Card({toggleRow("Show prayer times", settings_.showPrayerTimes),
                onlyWhile([this] { return settings_.showPrayerTimes.value(); }, whileShown())}));
  redraw();
}

QWidget* PrayerTimesCard::whileShown() {
  auto* method = greenPicker<PrayerCalculationMethod>(
      "Calculation method", settings_.calculationMethod, methods, methodName);
  auto* school =
      greenPicker<AsrCalculation>("Asr calculation", settings_.asrCalculation, schools, schoolName);
  auto* location = column({.spacing = kLocationSpacing, .alignment = Qt::AlignLeft},
                          {rowLabel("Location"), new LocationSettings(context_)});
  alerts_ = new AlertSettings(context_);
  return column(
      {.spacing = kRowSpacing, .alignment = Qt::AlignLeft},
      {groupDivider(), toggleRow("Show Sunnah times", settings_.showSunnahTimes), groupDivider(),
       rowLabel("Calculation method"), method, usualMethod(), groupDivider(),
       rowLabel("Asr calculation"), school, groupDivider(), location, groupDivider(), alerts_});
}

QWidget* PrayerTimesCard::usualMethod() {
  observe(methodOffer_.willChange);
  atRedraw([this] { methodOffer_.lookAtPlace(); });
  auto* use = linkButton(QStringLiteral("Use it"), [this] { methodOffer_.use(); });
  atRedraw([this, use] { use->setAccessibleName("Use it. " + usualMethodText()); });
  return onlyWhile(
      [this] { return methodOffer_.offer().has_value(); },
      row({.spacing = kOfferSpacing},
          {liveText(kOfferStyle, [this] { return usualMethodText(); }), use, flexibleSpace()}));
}

QString PrayerTimesCard::usualMethodText() const {
  const auto offer = methodOffer_.offer();
  if (!offer) return {};
  return "Usual in " + countryName(offer->country) + ": " + methodName(offer->method) + ".";
}

void PrayerTimesCard::refreshNotificationStatus() {
  alerts_->refreshNotificationStatus();
}

}  // namespace Hilalor::Screens
