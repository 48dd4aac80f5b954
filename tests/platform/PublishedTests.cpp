#include "platform/Published.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/Delivery.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Published, TellsThePresentValueAndEveryAssignedOneBeforeItIsInPlace) {
  Signal<> ownerWillChange;
  Published<int> number(1, &ownerWillChange);
  std::vector<std::string> heard;
  const auto owner = ownerWillChange.subscribe([&] { heard.push_back("owner"); });
  auto subscription = number.subscribe([&](int value) {
    heard.push_back(std::to_string(value) + " over " + std::to_string(number.value()));
  });
  number.assign(2);
  number.assign(2);
  EXPECT_THAT(heard, ElementsAre("1 over 1", "owner", "2 over 1", "owner", "2 over 2"));
  subscription.end();
  number.assign(3);
  EXPECT_EQ(heard.back(), "owner");
  EXPECT_EQ(number.value(), 3);
}

TEST(Signal, SubscribersMayComeAndGoWhileItIsEmitted) {
  Signal<> signal;
  std::vector<std::string> heard;
  Subscription second;
  Subscription late;
  const auto first = signal.subscribe([&] {
    heard.push_back("first");
    if (heard.size() > 1) return;
    second.end();
    late = signal.subscribe([&] { heard.push_back("late"); });
  });
  second = signal.subscribe([&] { heard.push_back("second"); });
  signal.emit();
  EXPECT_THAT(heard, ElementsAre("first"));
  signal.emit();
  late = {};
  signal.emit();
  EXPECT_THAT(heard, ElementsAre("first", "first", "late", "first"));
}

TEST(Signal, ASubscriberMayEndItselfOrTheOwner) {
  auto signal = std::make_unique<Signal<>>();
  int calls = 0;
  Subscription own;
  own = signal->subscribe([&] {
    ++calls;
    own.end();
    signal.reset();
  });
  const auto after = signal->subscribe([&] { ++calls; });
  signal->emit();
  EXPECT_EQ(calls, 2);
}

TEST(Delivery, OnNextPassHearsWhatIsInPlaceAndNothingOnceDropped) {
  VirtualLoop loop;
  Published<int> number(1);
  std::vector<int> heard;
  auto subscription = number.subscribe(onNextPass(loop, [&](int value) {
    EXPECT_EQ(value, number.value());
    heard.push_back(value);
  }));
  EXPECT_THAT(heard, IsEmpty());
  loop.runPosted();
  number.assign(2);
  loop.runPosted();
  EXPECT_THAT(heard, ElementsAre(1, 2));
  number.assign(3);
  subscription.end();
  loop.runPosted();
  EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST(Delivery, LatestOfTwoTellsEachPair) {
  for (const auto first : {FirstPair::told, FirstPair::dropped}) {
    Published<int> number(1);
    Published<std::string> word("a");
    std::vector<std::string> heard;
    const auto subscriptions =
        subscribeToLatest(number, word, first, [&](int latest, const std::string& text) {
          heard.push_back(std::to_string(latest) + text);
        });
    number.assign(2);
    word.assign("b");
    if (first == FirstPair::told) {
      EXPECT_THAT(heard, ElementsAre("1a", "2a", "2b"));
    } else {
      EXPECT_THAT(heard, ElementsAre("2a", "2b"));
    }
  }
}

}  // namespace
}  // namespace Hilalor
