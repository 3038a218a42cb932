#include "providers/qt/QtRadioGroup.h"

#include <QRadioButton>

namespace touchpanel {

QtRadioGroup::QtRadioGroup(QWidget& container) : QtControl(container) {
  int row = 0;
  for (auto* button : container.findChildren<QRadioButton*>()) buttons_.addButton(button, row++);
  QObject::connect(&buttons_, &QButtonGroup::idClicked, &buttons_, [this](int id) {
    row_ = id;
    if (edited_) edited_();
  });
}

void QtRadioGroup::selectRow(std::int32_t row) {
  row_ = row;
  if (auto* button = buttons_.button(row); button != nullptr && row >= 0) {
    button->setChecked(true);
    return;
  }
  // An exclusive group does not let its last checked button go.
  buttons_.setExclusive(false);
  for (auto* button : buttons_.buttons()) button->setChecked(false);
  buttons_.setExclusive(true);
}

}  // namespace touchpanel
