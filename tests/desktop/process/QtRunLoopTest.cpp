#include "desktop/process/QtRunLoop.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <chrono>
#include <latch>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Hilalor::Desktop {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class QtRunLoopTest : public testing::Test {
 protected:
  /// Lets the loop run until a task of the given delay has had its turn.
  void runFor(Seconds delay) {
    loop.after(delay, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
  }

  QtRunLoop loop;
  std::vector<std::string> ran;
};

TEST_F(QtRunLoopTest, RunsPostedTasksInOrderAndThoseTheyPostOnALaterPass) {
  loop.post([this] {
    loop.post([this] { ran.emplace_back("inner"); });
    ran.emplace_back("first");
  });
  loop.post([this] { ran.emplace_back("second"); });
  EXPECT_TRUE(ran.empty());
  runFor(1ms);
  EXPECT_THAT(ran, ElementsAre("first", "second", "inner"));
}

TEST_F(QtRunLoopTest, ADroppedTimerNeverFiresEvenWhenItIsDue) {
  auto once = loop.once(0ms, [this] { ran.emplace_back("once"); });
  auto repeating = loop.repeating(0ms, [this] { ran.emplace_back("repeating"); });
  once.reset();
  repeating.reset();
  runFor(1ms);
  EXPECT_TRUE(ran.empty());
}

TEST_F(QtRunLoopTest, ATaskMayDropItsOwnTimer) {
  std::unique_ptr<Timer> timer;
  timer = loop.repeating(1ms, [this, &timer, name = std::string("a name too long to be inlined")] {
    timer.reset();
    ran.push_back(name);
  });
  runFor(10ms);
  EXPECT_THAT(ran, ElementsAre("a name too long to be inlined"));
}

TEST_F(QtRunLoopTest, TimersAreNeverEarly) {
  const auto start = std::chrono::steady_clock::now();
  int ticks = 0;
  const auto timer = loop.repeating(2ms, [&] {
    ++ticks;
    EXPECT_GE(std::chrono::steady_clock::now() - start, ticks * 2ms);
    if (ticks == 10) QCoreApplication::quit();
  });
  QCoreApplication::exec();
}

TEST_F(QtRunLoopTest, WorksOnAnotherThreadAndAnswersOnTheMainOne) {
  QThread* const mainThread = QThread::currentThread();
  loop.inBackground([&]() -> RunLoop::Task {
    EXPECT_NE(QThread::currentThread(), mainThread);
    return [&] {
      EXPECT_EQ(QThread::currentThread(), mainThread);
      ran.emplace_back("answer");
      QCoreApplication::quit();
    };
  });
  loop.inBackground([]() -> RunLoop::Task { return nullptr; });
  QCoreApplication::exec();
  EXPECT_THAT(ran, ElementsAre("answer"));
}

TEST_F(QtRunLoopTest, WhatWaitsWhenTheLoopGoesIsDropped) {
  {
    QtRunLoop shortLived;
    shortLived.post([this] { ran.emplace_back("post"); });
    shortLived.after(1ms, [this] { ran.emplace_back("after"); });
    shortLived.inBackground(
        [this]() -> RunLoop::Task { return [this] { ran.emplace_back("answer"); }; });
  }
  runFor(5ms);
  EXPECT_TRUE(ran.empty());
}

TEST_F(QtRunLoopTest, EndsBackgroundWorkAndLetsGoOfItsAnswers) {
  std::latch gate(1);
  auto service = std::make_shared<int>();
  loop.inBackground([&gate, service]() -> RunLoop::Task {
    gate.wait();
    return [service] {};
  });
  const std::weak_ptr held = std::exchange(service, nullptr);
  EXPECT_FALSE(loop.endBackgroundWork(1ms));
  gate.count_down();
  EXPECT_TRUE(loop.endBackgroundWork(1min));
  EXPECT_TRUE(held.expired());
}

}  // namespace
}  // namespace Hilalor::Desktop
