#include "providers/qt/BuddyLabel.h"

#include <QLabel>

namespace touchpanel {

QLabel* buddyLabelOf(const QWidget& widget) {
  for (auto* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return label;
  return nullptr;
}

}  // namespace touchpanel
