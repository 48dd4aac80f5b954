// Plays a recording as the program does, and ends with it. At the end of its input it stops the
// recording and says when: the seconds of the machine's monotonic clock.
//
//   sound_probe RECORDING

#include <QCoreApplication>
#include <QSocketNotifier>
#include <chrono>
#include <iostream>

#include "desktop/process/QtRunLoop.hpp"
#include "desktop/sound/LinuxSoundService.hpp"

namespace {

using namespace Hilalor;

struct End final : AudioPlayer::Delegate {
  void audioPlayerDidFinishPlaying(AudioPlayer&, bool) override { QCoreApplication::quit(); }
};

}  // namespace

int main(int argc, char* argv[]) {
  QCoreApplication application(argc, argv);
  if (argc != 2) return 2;
  Desktop::QtRunLoop loop;
  const Desktop::LinuxSoundService sounds(loop, {});
  End end;
  const auto player = sounds.player(argv[1]);
  player->setDelegate(&end);
  player->play();
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
    input.setEnabled(false);
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    player->stop();
    std::cout << now.count() << std::endl;
  });
  return QCoreApplication::exec();
}
