#include "desktop/process/QtRunLoop.hpp"

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Hilalor::Desktop {
namespace {

constexpr int kIdleMilliseconds = 1000;

enum class Firing { once, repeatedly };

std::chrono::milliseconds qtInterval(Seconds span) {
  constexpr double kLongest = std::numeric_limits<int>::max();
  const double milliseconds = std::ceil(span.count() * 1000.0);
  return std::chrono::milliseconds(static_cast<int>(std::clamp(milliseconds, 0.0, kLongest)));
}

class QtTimer : public Timer {
 public:
  QtTimer(Seconds interval, Firing firing, RunLoop::Task task)
      : timer_(std::make_shared<QTimer>()) {
    timer_->setTimerType(Qt::PreciseTimer);
    timer_->setSingleShot(firing == Firing::once);
    QObject::connect(timer_.get(), &QTimer::timeout,
                     [weak = std::weak_ptr(timer_), task = std::move(task)] {
                       // The task may drop this handle, and with it itself.
                       const auto alive = weak.lock();
                       task();
                     });
    timer_->start(qtInterval(interval));
  }
  QtTimer(const QtTimer&) = delete;
  QtTimer& operator=(const QtTimer&) = delete;
  ~QtTimer() override { timer_->stop(); }

 private:
  std::shared_ptr<QTimer> timer_;
};

}  // namespace

QtRunLoop::QtRunLoop() {
  background_.setMaxThreadCount(2);
  // An idle thread is memory.
  background_.setExpiryTimeout(kIdleMilliseconds);
}

QtRunLoop::~QtRunLoop() {
  background_.clear();
  background_.waitForDone();
}

void QtRunLoop::post(Task task) {
  QMetaObject::invokeMethod(&mainThread_, std::move(task), Qt::QueuedConnection);
}

std::unique_ptr<Timer> QtRunLoop::once(Seconds delay, Task task) {
  return std::make_unique<QtTimer>(delay, Firing::once, std::move(task));
}

std::unique_ptr<Timer> QtRunLoop::repeating(Seconds period, Task task) {
  return std::make_unique<QtTimer>(period, Firing::repeatedly, std::move(task));
}

void QtRunLoop::after(Seconds delay, Task task) {
  QTimer::singleShot(qtInterval(delay), Qt::PreciseTimer, &mainThread_, std::move(task));
}

void QtRunLoop::inBackground(BackgroundWork work) {
  background_.start([this, work = std::move(work)] {
    if (auto answer = work()) post(std::move(answer));
  });
}

bool QtRunLoop::endBackgroundWork(std::chrono::milliseconds patience) {
  background_.clear();
  if (!background_.waitForDone(static_cast<int>(patience.count()))) return false;
  QCoreApplication::removePostedEvents(&mainThread_);
  return true;
}

}  // namespace Hilalor::Desktop
