#include "panel/Themes.h"

namespace touchpanel {
namespace {

struct Shades {
  QRgb window, windowText, base, alternateBase, button, highlight, highlightedText, disabledText, link;
};

QPalette paletteOf(const Shades& shades) {
  QPalette palette(QColor::fromRgb(shades.button), QColor::fromRgb(shades.window));
  const auto set = [&](QPalette::ColorRole role, QRgb colour) {
    palette.setColor(role, QColor::fromRgb(colour));
  };
  set(QPalette::WindowText, shades.windowText);
  set(QPalette::Text, shades.windowText);
  set(QPalette::ButtonText, shades.windowText);
  set(QPalette::Base, shades.base);
  set(QPalette::AlternateBase, shades.alternateBase);
  set(QPalette::Highlight, shades.highlight);
  set(QPalette::HighlightedText, shades.highlightedText);
  set(QPalette::ToolTipBase, shades.base);
  set(QPalette::ToolTipText, shades.windowText);
  set(QPalette::PlaceholderText, shades.disabledText);
  set(QPalette::Link, shades.link);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(shades.disabledText));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(shades.alternateBase));
  return palette;
}

}  // namespace

QPalette lightPalette() {
  return paletteOf({.window = 0xFFF4F5F7,
                    .windowText = 0xFF1C1E21,
                    .base = 0xFFFFFFFF,
                    .alternateBase = 0xFFEEF1F5,
                    .button = 0xFFFBFBFC,
                    .highlight = 0xFF1765B8,
                    .highlightedText = 0xFFFFFFFF,
                    .disabledText = 0xFF767B83,
                    .link = 0xFF1765B8});
}

QPalette darkPalette() {
  return paletteOf({.window = 0xFF26282B,
                    .windowText = 0xFFECEEF1,
                    .base = 0xFF1B1D1F,
                    .alternateBase = 0xFF232629,
                    .button = 0xFF35383C,
                    .highlight = 0xFF4A9BE8,
                    .highlightedText = 0xFF10151A,
                    .disabledText = 0xFF8E949C,
                    .link = 0xFF6FB3F2});
}

QPalette highContrastPalette() {
  return paletteOf({.window = 0xFF000000,
                    .windowText = 0xFFFFFFFF,
                    .base = 0xFF000000,
                    .alternateBase = 0xFF141414,
                    .button = 0xFF202020,
                    .highlight = 0xFFFFE100,
                    .highlightedText = 0xFF000000,
                    .disabledText = 0xFFB4B4B4,
                    .link = 0xFFFFE100});
}

}  // namespace touchpanel
