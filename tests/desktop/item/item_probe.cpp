// Shows a status item whose title is the last line read, and prints what happens to it.

#include <unistd.h>
#include <QApplication>
#include <QSocketNotifier>
#include <iostream>
#include <string>

#include "desktop/QtRunLoop.hpp"
#include "desktop/item/LinuxStatusBar.hpp"

namespace {

using namespace Hilalor;

void print(const StatusItemClick& click) {
  std::cout << (click.button == StatusItemClick::Button::left ? "left" : "right");
  if (const auto& item = click.item) {
    std::cout << " item " << item->origin.x << ' ' << item->origin.y << ' ' << item->size.width
              << ' ' << item->size.height;
  }
  if (const auto& pointer = click.pointer) {
    std::cout << " pointer " << pointer->x << ' ' << pointer->y;
  }
  std::cout << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtRunLoop loop;
  SessionBus bus(loop);
  LinuxStatusBar bar(loop, bus, HILALOR_ITEM_PICTURES);
  const auto item = bar.makeItem();
  item->button()->setAction(print);
  item->button()->setContextMenu({{"Quit Hilalor", 'q', [] { QApplication::quit(); }}});

  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    std::string title;
    if (!std::getline(std::cin, title)) return input.setEnabled(false);
    item->button()->setTitle(title);
  });
  return QApplication::exec();
}
