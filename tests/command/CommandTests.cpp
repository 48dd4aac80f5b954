#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "command/AnnouncementFile.hpp"
#include "command/Answers.hpp"
#include "tests/command/Schema.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// 2026-11-23 14:00 in Riyadh, where the machine and the user's place are.
constexpr Date kNow{1795431600};

class CommandTest : public ::testing::Test {
 protected:
  [[nodiscard]] static std::unique_ptr<InMemoryDefaultsStore> settings(const char* locationMode) {
    auto store = std::make_unique<InMemoryDefaultsStore>();
    store->setValue("locationMode", std::string(locationMode));
    store->setValue("manualLatitude", 24.6877);
    store->setValue("manualLongitude", 46.7219);
    store->setValue("manualLocationName", std::string("R&D \xff"));
    store->setValue("manualTimeZoneId", std::string("Asia/Riyadh"));
    store->setValue("menuBarStyle", std::string("nextPrayer"));
    return store;
  }

  /// The answer to a line of words, or the complaint, where the user has set those numbers.
  static std::string said(const std::string& line,
                          const std::map<const char*, std::int64_t>& numbers = {}) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
      words.push_back(word);
    const std::vector<std::string_view> views(words.begin(), words.end());
    const auto request = requestOf(views);
    if (const auto* complaint = std::get_if<Complaint>(&request)) return complaint->text;
    const auto store = settings("manual");
    for (const auto& [key, number] : numbers)
      store->setValue(key, number);
    const Course course(*store, {}, std::get<Request>(request));
    EXPECT_EQ(warning(std::get<Request>(request), course), std::nullopt);
    const auto moment = Moment::at(kNow);
    if (const auto text = refusal(std::get<Request>(request), course, moment)) return *text;
    return answer(std::get<Request>(request), course, moment);
  }

  SystemTimeZone zone{"Asia/Riyadh"};
};

TEST_F(CommandTest, AnswersInWords) {
  const struct {
    const char* words;
    const char* answer;
  } cases[] = {
      {"title", "Asr 43m"},
      {"next", "Asr 43m"},
      {"next --place 52.52,13.40 --zone Europe/Berlin --method muslimWorldLeague", "Asr 1h 42m"},
      {"day",
       "Monday, 23 November 2026\n13 Jumada II 1448\nR&D \xff\n"
       "  Fajr             04:53 AM\n  Sunrise          06:15 AM\n  Dhuhr            11:39 AM\n"
       "> Asr              02:43 PM\n  Maghrib          05:04 PM\n  Isha             06:34 PM"},
      {"month hijri 1448-09",
       "Ramadan 1448\nFeb – Mar 2027\n Su  Mo  Tu  We  Th  Fr  Sa\n"
       "      1   2   3   4   5   6\n  7   8   9  10  11  12  13\n 14  15  16  17  18  19  20\n"
       " 21  22  23  24  25  26  27\n 28  29"},
      {"convert 2026-11-23", "Monday, 13 Jumada II 1448"},
      {"convert hijri 1448-09-29", "Monday, 8 March 2027"},
      {"qibla", "244.2°"},
  };
  for (const auto& [words, answer] : cases)
    EXPECT_EQ(said(words), answer) << words;
  EXPECT_THAT(said("month"), HasSubstr(" 22  23* 24"));
  EXPECT_THAT(said("day hijri 1448-10-01 --place 69.65,18.96 --zone Europe/Oslo"),
              StartsWith("Tuesday, 9 March 2027\n1 Shawwal 1448\n"));
  EXPECT_THAT(said("day 2026-12-21 --place 78.2,15.6 --zone Europe/Oslo"), HasSubstr("no times"));
}

TEST_F(CommandTest, GoesByTheUsersHijriDayAndAtHomeByTheirMinutes) {
  const std::map<const char*, std::int64_t> own{
      {"hijriDays", -1}, {"asrMinutes", 5}, {"use24HourClock", 1}};
  EXPECT_EQ(said("convert 2026-11-23", own), "Monday, 12 Jumada II 1448");
  EXPECT_EQ(said("convert hijri 1448-09-29", own), "Tuesday, 9 March 2027");
  EXPECT_THAT(said("day hijri 1448-10-01", own), StartsWith("Wednesday, 10 March 2027\n1 Shaw"));
  EXPECT_THAT(said("month hijri 1448-10 --json", own),
              HasSubstr(R"({"date":"2027-03-10","hijriDate":"1448-10-01","day":1,"holiday":"Eid)"));
  EXPECT_THAT(said("day", own), HasSubstr("> Asr              14:48\n"));
  EXPECT_EQ(said("next --place 52.52,13.40 --zone Europe/Berlin --method muslimWorldLeague", own),
            "Asr 1h 42m");
}

TEST_F(CommandTest, KnowsDaysThatAZoneLeftOut) {
  zone.set("Pacific/Apia");
  EXPECT_EQ(said("convert 2011-12-30"), "Friday, 5 Safar 1433");
  EXPECT_EQ(said("day 2011-12-30 --place -13.8,-171.7 --zone Pacific/Apia"),
            "there is no 2011-12-30 in Pacific/Apia");
}

TEST_F(CommandTest, AnswersInTheDocumentedJson) {
  const Schema schema;
  for (const std::string verb : {"title", "day", "next", "month", "qibla"})
    EXPECT_TRUE(schema.fits(said(verb + " --json"), verb)) << said(verb + " --json");
  EXPECT_TRUE(schema.fits(said("convert 2027-03-10 --json"), "convert"));
  EXPECT_TRUE(schema.fits(said("next --waybar"), "waybar"));
  const std::string polarNight = " --json --place 78.2,15.6 --zone Europe/Oslo";
  EXPECT_TRUE(schema.fits(said("next" + polarNight), "next"));
  EXPECT_TRUE(schema.fits(said("day 2026-12-21" + polarNight), "day"));

  EXPECT_THAT(said("title --json"), HasSubstr(R"("now":"2026-11-23T14:00:00+03:00")"));
  EXPECT_THAT(said("next --json --place 40.71,-74.4 --zone America/New_York"),
              HasSubstr(R"("id":"dhuhr","name":"Dhuhr","time":"2026-11-23T11:44:00-05:00")"));
  EXPECT_THAT(said("title --waybar"), HasSubstr("R&amp;D \uFFFD"));
}

TEST_F(CommandTest, SaysWhatIsWrong) {
  for (const char* words : {"titel",
                            "title 2026-11-23",
                            "title --json --waybar",
                            "day --waybar",
                            "next --follow",
                            "day 2026-02-30",
                            "day 2026-2-3",
                            "day hijri",
                            "day hijri 1448-06-31",
                            "day 2026-11",
                            "month 2026-13",
                            "month 2026-11-23",
                            "convert",
                            "day 2026-11-23 2026-11-24",
                            "qibla --place 91,0 --zone UTC",
                            "qibla --place 1;2 --zone UTC",
                            "qibla --place 1,2",
                            "qibla --zone UTC",
                            "qibla --place 1,2 --zone Mars/Olympus",
                            "day --method mine",
                            "day --method"}) {
    const auto text = said(words);
    EXPECT_TRUE(text.find("\"") != text.npos || text.find("--") != text.npos ||
                text.find("needs") != text.npos)
        << words << ": " << text;
    EXPECT_EQ(text.find('\n'), text.npos) << words << ": " << text;
  }
}

TEST_F(CommandTest, SaysWhatTheRunningProgramAnnounces) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "hilalor/announcement";
  EXPECT_EQ(keptAnnouncement(file), std::nullopt);
  {
    const AnnouncementKeeper keeper(file);
    keeper.keep("Maghrib Athan");
    keeper.keep("Fajr Athan");
    EXPECT_EQ(keptAnnouncement(file), "Fajr Athan");
    keeper.keep(std::nullopt);
    EXPECT_EQ(keptAnnouncement(file), std::nullopt);
    keeper.keep("Fajr Athan");
  }
  EXPECT_EQ(keptAnnouncement(file), std::nullopt) << "the program has ended";

  const auto store = settings("manual");
  const Told told{.place = {}, .announcement = "Asr Athan"};
  const auto titleOf = [&](const Request& request) {
    return answer(request, Course(*store, told, request), Moment::at(kNow));
  };
  EXPECT_EQ(titleOf({.verb = Verb::title}), "\U0001F54C Asr Athan");
  EXPECT_EQ(titleOf({.verb = Verb::next}), "Asr 43m");
  EXPECT_EQ(titleOf({.verb = Verb::title, .method = PrayerCalculationMethod::ummAlQura}),
            "Asr 43m");
}

TEST_F(CommandTest, WarnsWhereThePlaceIsNotTheUsers) {
  std::optional<LocatedPlace> located;
  const auto warns = [&located](const Request& request) {
    const auto store = settings("automatic");
    return warning(request, Course(*store, {located, {}}, request)).has_value();
  };
  EXPECT_TRUE(warns({.verb = Verb::next}));
  EXPECT_TRUE(warns({.verb = Verb::title}));
  EXPECT_FALSE(warns({.verb = Verb::month}));
  located = LocatedPlace{{52.52, 13.4}, "Berlin", *TimeZone::named("Europe/Berlin")};
  EXPECT_FALSE(warns({.verb = Verb::next}));
  const TemporaryFolder folder;
  const auto file = folder.path() / "hilalor" / "place";
  EXPECT_EQ(keptPlace(file), std::nullopt);
  keepPlace(file, *located);
  EXPECT_EQ(keptPlace(file), located);
  std::ofstream(file) << "52.52 nowhere";
  EXPECT_EQ(keptPlace(file), std::nullopt);
  EXPECT_EQ(said("qibla --place 0,0 --zone UTC"), "58.5°");
}

}  // namespace
}  // namespace Hilalor
