#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QTest>

#include "tests/fakes/Parts.hpp"
#include "ui/View.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kLineHeight = 20;

/// Two lines, of which the second comes and goes.
class TwoLines final : public View {
 public:
  TwoLines() {
    setFixedWidth(100);
    setBody(
        column({.spacing = 6, .padding = {.top = 4}},
               {framed(liveText({}, [this] { return title; }), 80, kLineHeight),
                onlyWhile([this] { return showsSecond; }, framed(new QWidget, 80, kLineHeight))}));
    atRedraw([this] { ++redraws; });
    redraw();
  }

  QString title;
  bool showsSecond = false;
  int redraws = 0;
};

TEST(View, ManyRequestsOfOnePassMakeOneRedraw) {
  TwoLines view;
  view.setNeedsRedraw();
  view.setNeedsRedraw();
  view.title = QStringLiteral("in place by the time it is drawn");
  EXPECT_EQ(view.redraws, 1);
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(view.redraws, 2);
  EXPECT_EQ(part<Text>(view)->text(), view.title);
}

TEST(View, ReportsItsSizeOnlyWhenItChanged) {
  TwoLines view;
  std::vector<QSize> sizes;
  view.onWantedSize = [&](QSize size) { sizes.push_back(size); };
  view.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(sizes, std::vector({QSize(100, 4 + kLineHeight)}));

  view.showsSecond = true;
  view.redraw();
  QCoreApplication::processEvents();
  view.redraw();
  QCoreApplication::processEvents();
  EXPECT_EQ(sizes, std::vector({QSize(100, 4 + kLineHeight), QSize(100, 4 + 2 * kLineHeight + 6)}));
}

TEST(Text, BreaksBetweenWordsWhereThereIsNoRoom) {
  const Text text({.size = 10}, QStringLiteral("Eid Al-Fitr · Saudi National Day"));
  const QSize oneLine = text.sizeHint();
  EXPECT_EQ(text.heightForWidth(oneLine.width()), oneLine.height());
  EXPECT_GT(text.heightForWidth(oneLine.width() * 2 / 3), oneLine.height());
}

TEST(Text, TellsTheWholeOfWhatIsCut) {
  Text text({.size = 10, .overflow = Overflow::ellipsis}, QStringLiteral("Medina <b>, Arabia"));
  const QSize whole = text.sizeHint();
  EXPECT_EQ(text.heightForWidth(whole.width() / 2), text.heightForWidth(whole.width()));
  const auto told = [&text](int width) {
    text.resize(width, text.height());
    QHelpEvent asked(QEvent::ToolTip, {}, {});
    QCoreApplication::sendEvent(&text, &asked);
    return text.accessibleDescription();
  };
  EXPECT_EQ(told(whole.width() - 1), text.text());
  EXPECT_EQ(told(whole.width()), QString());
}

TEST(Text, TimesStandInColumns) {
  Text text({.size = 11, .figures = Figures::columns}, QStringLiteral("11:11 AM"));
  const int width = text.sizeHint().width();
  text.setText(QStringLiteral("08:40 PM"));
  EXPECT_EQ(text.sizeHint().width(), width);
}

TEST(Grid, CellsStandInColumnsOfOneWidth) {
  std::vector<QWidget*> cells;
  for (int index = 0; index < 14; ++index)
    cells.push_back(framed(new QWidget, 32, 40));
  const std::unique_ptr<QWidget> shown(
      grid({.columns = 7, .columnWidth = 32, .spacing = 2}, cells));
  shown->show();
  EXPECT_EQ(shown->size(), QSize(7 * 32 + 6 * 2, 2 * 40 + 2));
  EXPECT_EQ(cells[13]->pos(), QPoint(6 * 34, 42));
}

}  // namespace
}  // namespace Hilalor::Ui
