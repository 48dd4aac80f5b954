#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "datetime/Date.hpp"
#include "datetime/Moment.hpp"
#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/MonthPage.hpp"
#include "rules/settings/AppSettings.hpp"

namespace Hilalor {

/// Which sections the panel shows.
struct PanelSections {
  bool calendar = true;
  bool prayerTimes = true;

  friend bool operator==(const PanelSections&, const PanelSections&) = default;
};

/// The calendar as the panel shows it and as its user moves through it. A day is its start in the
/// machine's time zone. Whatever is done is on the page after the next `refresh`. Main thread.
class PanelModel {
 public:
  PanelModel(const AppSettings& settings, const Moment& moment);

  /// Follows clock and settings. It begins anew with today when the sections, the primary calendar,
  /// the user's Hijri day or the machine's time zone have changed; an open note stays.
  void refresh(const Moment& moment);

  [[nodiscard]] PanelSections sections() const;

  /// The shown month, as of the last refresh with a calendar section.
  [[nodiscard]] const MonthPage& page() const { return page_; }

  /// How many weeks the page's days take.
  [[nodiscard]] std::size_t neededWeeks() const;

  /// The name and the year of the month, or in year mode the year.
  [[nodiscard]] std::string title() const;

  /// Whether the arrows step by years.
  [[nodiscard]] bool isYearMode() const { return isYearMode_; }

  [[nodiscard]] const std::optional<Date>& selectedDay() const { return selectedDay_; }

  /// A moment of the day whose prayers are listed: the selected day, or today.
  [[nodiscard]] Date listedMoment() const { return selectedDay_.value_or(moment_.now); }

  /// The day that keys act on: the selected one, else today, else the first of the shown month.
  [[nodiscard]] Date keyboardDay() const;

  /// The day whose note is open.
  [[nodiscard]] const std::optional<Date>& noteDay() const { return noteDay_; }

  /// What the hover line says; empty for nothing.
  [[nodiscard]] const std::string& hoverText() const { return hoverText_; }

  // The pointer.
  void showPrevious();
  void showNext();
  void toggleYearMode() { isYearMode_ = !isYearMode_; }
  /// Selects the day, or clears its selection.
  void click(Date day);
  /// Opens the day's note. The selection is what it was before the first of the two clicks.
  void doubleClick(Date day);
  void hover(std::string text) { hoverText_ = std::move(text); }

  // The keyboard.
  /// Selects the day that lies so far from the one that keys act on, and shows its month.
  void move(CalendarUnit unit, int amount);
  /// Opens the note of the day that keys act on, if that day is on the page.
  void openNote();
  /// Today's month, with nothing selected.
  void returnToToday(Date now);

  void closeNote() { noteDay_.reset(); }

 private:
  const AppSettings& settings_;
  Moment moment_;  // Of the last refresh.
  PanelSections shownSections_;
  MonthPage page_;

  CalendarModel month_;
  bool isYearMode_ = false;
  std::optional<Date> selectedDay_;
  std::optional<Date> selectedBefore_;  // The last click.
  std::optional<Date> noteDay_;
  std::string hoverText_;
};

}  // namespace Hilalor
