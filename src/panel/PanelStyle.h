#pragma once

#include <QProxyStyle>

namespace touchpanel {

/// The desktop's style, with more room in tables. Where the style is Qt's own one, indicators and outlines
/// are drawn in the text's colour, so that they can be seen in dark and high-contrast palettes too.
class PanelStyle final : public QProxyStyle {
 public:
  /// On top of `base`, an installed style's name; empty takes the desktop's.
  explicit PanelStyle(const QString& base = {});

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;

 private:
  bool isQtsOwn() const { return baseStyle()->name() == QLatin1String("fusion"); }
};

}  // namespace touchpanel
