// Starts the program again and again on this display and prints, in milliseconds, how long each run
// took from the start of the process to its item's window on the screen; ends each run by SIGTERM.
// Usage: start_to_title PROGRAM RUNS, on a display with a tray and no window manager.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

// Blocks until some window of another client is mapped or taken in by a tray.
bool waitForWindow(xcb_connection_t* display) {
  while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_wait_for_event(display)}) {
    const int kind = event->response_type & 0x7f;
    if (kind == XCB_MAP_NOTIFY || kind == XCB_REPARENT_NOTIFY) return true;
  }
  return false;
}

double millisecondsToWindow(xcb_connection_t* display, char* program) {
  const auto start = Clock::now();
  const pid_t child = fork();
  if (child == 0) {
    execl(program, program, nullptr);
    _exit(127);
  }
  const bool shown = waitForWindow(display);
  const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
  kill(child, SIGTERM);
  int status = 0;
  waitpid(child, &status, 0);
  // A program without a handler of its own is ended by the signal.
  const bool ended = WIFEXITED(status) ? WEXITSTATUS(status) == 0 : WTERMSIG(status) == SIGTERM;
  return shown && ended ? taken.count() : -1;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) return EXIT_FAILURE;
  auto* display = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(display) != 0) return EXIT_FAILURE;
  const auto root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
  const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(display, root, XCB_CW_EVENT_MASK, &events);
  xcb_flush(display);
  for (int run = 0; run < std::atoi(argv[2]); ++run) {
    std::printf("%.1f\n", millisecondsToWindow(display, argv[1]));
  }
  xcb_disconnect(display);
}
