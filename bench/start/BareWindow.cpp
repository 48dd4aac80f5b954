// A window with a word in it, as little as a Qt program can be: what bench/process measures the
// program beside.

#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QLabel label(QStringLiteral("Maghrib 45m"));
  label.show();
  return QApplication::exec();
}
