#pragma once

#include <QAbstractButton>
#include <QLabel>

namespace touchpanel::testing {

/// The texts in `window` that are not shown whole.
inline QStringList clippedTexts(const QWidget& window) {
  QStringList clipped;
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisibleTo(&window) || label->text().isEmpty()) continue;
    const QSize hint = label->sizeHint();
    const bool fits = label->wordWrap() ? label->heightForWidth(label->width()) <= label->height()
                                        : hint.width() <= label->width() && hint.height() <= label->height();
    if (!fits) clipped += label->text();
  }
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (button->isVisibleTo(&window) && !button->text().isEmpty() &&
        button->sizeHint().width() > button->width())
      clipped += button->text();
  return clipped;
}

}  // namespace touchpanel::testing
