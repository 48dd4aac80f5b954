#pragma once

#include <QProxyStyle>
#include <functional>

namespace Hilalor::Ui {

/// The desktop's style with menus and tool tips of our own: rounded, with an edge and a shadow, in
/// the colours of the window they belong to, and with a tick at what is chosen and at nothing else.
class PopUpStyle final : public QProxyStyle {
 public:
  /// `mixesWindows` is asked for every pop-up: whether what is see-through is seen so.
  explicit PopUpStyle(std::function<bool()> mixesWindows);

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;

  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const override;
  [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* answer) const override;
  [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                       const QSize& content, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;

  /// The room around a menu that only its shadow takes.
  [[nodiscard]] static int shadowOf(const QWidget& popUp);

 private:
  std::function<bool()> mixesWindows_;
};

}  // namespace Hilalor::Ui
