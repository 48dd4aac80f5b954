// The item in the bar, with the titles that a test gives it by lines on the input:
//   title GLYPH|TEXT|UPPER|LOWER|MINUTES
//                      shows that title; GLYPH is "mosque" or nothing, and a square without LOWER a
//                      calendar's page
//   whole HEIGHT       prints how wide and high the letters are of the whole title in a bar window
//                      of that height, in the screen's pixels
//   square SIDE        the same of the title drawn as a square
//   quit

#include <unistd.h>

#include <QApplication>
#include <QPainter>
#include <QSocketNotifier>
#include <cmath>
#include <iostream>
#include <sstream>
#include <string>

#include "desktop/item/LinuxStatusBar.hpp"
#include "desktop/process/QtRunLoop.hpp"
#include "desktop/session/SessionBus.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;

/// How much of a transparent picture was drawn on.
QSize drawn(const QImage& picture) {
  QRect found;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (qAlpha(picture.pixel(x, y)) > 40) found |= QRect(x, y, 1, 1);
  return found.size();
}

class Probe {
 public:
  void obey(const std::string& line) {
    const auto space = line.find(' ');
    const auto what = line.substr(0, space);
    const auto value = space == std::string::npos ? std::string() : line.substr(space + 1);
    if (what == "title") show(value);
    if (what == "whole") print(whole(std::stoi(value)));
    if (what == "square") print(painter_.compactPicture(title_, std::stoi(value)));
    if (what == "quit") QApplication::quit();
  }

 private:
  void show(const std::string& value) {
    std::istringstream fields(value);
    const auto field = [&] {
      std::string text;
      std::getline(fields, text, '|');
      return text;
    };
    title_.glyph = field() == "mosque" ? TitleGlyph::mosque : TitleGlyph::none;
    title_.text = field();
    auto& compact = title_.compact;
    for (auto* part : {&compact.upper, &compact.lower, &compact.minutes})
      *part = field();
    compact.form = compact.lower.empty() ? CompactTitle::Form::page : CompactTitle::Form::lines;
    item_->button()->setTitle(title_);
  }

  [[nodiscard]] QImage whole(int deviceHeight) const {
    const double scale = qApp->devicePixelRatio();
    const int height = static_cast<int>(std::lround(deviceHeight / scale));
    const QRect rect(0, 0, painter_.naturalWidth(title_, height), height);
    QImage picture((QSizeF(rect.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter_.drawTitle(painter, rect, title_, Ink{Qt::black, std::nullopt});
    return picture;
  }

  static void print(const QImage& picture) {
    const auto size = drawn(picture);
    std::cout << size.width() << ' ' << size.height() << std::endl;
  }

  QtRunLoop loop_;
  SessionBus bus_{loop_};
  InMemoryDefaultsStore store_;
  LinuxStatusBar bar_{loop_, bus_, store_, HILALOR_ITEM_PICTURES};
  GlyphPictures pictures_{HILALOR_ITEM_PICTURES};
  ItemPainter painter_{pictures_};
  std::unique_ptr<StatusItem> item_ = bar_.makeItem();
  ItemTitle title_;
};

}  // namespace

int main(int argc, char** argv) {
  // Lines that come together are then seen to wait.
  std::ios::sync_with_stdio(false);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  Probe probe;
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    std::string line;
    do {
      if (!std::getline(std::cin, line)) return QApplication::quit();
      probe.obey(line);
    } while (std::cin.rdbuf()->in_avail() > 0);
  });
  return QApplication::exec();
}
