#pragma once

#include <QProxyStyle>
#include <functional>

namespace Hilalor::Ui {

/// The desktop's style with menus and tool tips of our own: rounded, with an edge and a shadow, in
/// the colours of the window they belong to, and with a tick at what is chosen and at nothing else.
/// Nothing moves where the desktop does not want it.
class PopUpStyle final : public QProxyStyle {
 public:
  struct Desktop {
    std::function<bool()> mixesWindows;  ///< Whether what is see-through is seen so.
    std::function<bool()> animates;      ///< Whether it wants movement.
  };

  /// Asked for every pop-up, and for every movement.
  explicit PopUpStyle(Desktop desktop);

  /// Whether movement is wanted, unless `Desktop::animates` is against it.
  void setAnimates(bool animates) { animates_ = animates; }

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
  Desktop desktop_;
  bool animates_ = true;
};

}  // namespace Hilalor::Ui
