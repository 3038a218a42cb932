#include "providers/qt/QtControls.h"

#include <QCoreApplication>
#include <QDialog>
#include <QRadioButton>

namespace touchpanel {
namespace {

QDialog& dialogOf(Window& sheet) { return dynamic_cast<QDialog&>(dynamic_cast<QtWindow&>(sheet).widget()); }

}  // namespace

QLabel* buddyLabelOf(const QWidget& widget) {
  for (auto* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return label;
  return nullptr;
}

void QtButton::setEnabled(bool enabled) {
  QtControl::setEnabled(enabled);
  for (auto* entry : entries_) entry->setEnabled(enabled);
  if (follower_ != nullptr) follower_->setEnabled(enabled);
}

void QtButton::setTitle(std::string_view title) {
  const auto text = QCoreApplication::translate("Controls", std::string(title).c_str());
  button_.setText(text);
  for (auto* entry : entries_) entry->setText(text);
}

QtRadioGroup::QtRadioGroup(QWidget& container) : QtControl(container) {
  int row = 0;
  for (auto* button : container.findChildren<QRadioButton*>()) buttons_.addButton(button, row++);
  QObject::connect(&buttons_, &QButtonGroup::idClicked, &buttons_, [this](int id) {
    row_ = id;
    putChoiceInTabOrder();
    if (edited_) edited_();
  });
}

/// The tabulator key stops at the choice that is made, not at the one that had the keyboard last, which the
/// toolkit remembers.
void QtRadioGroup::putChoiceInTabOrder() {
  const bool isAnyChosen = buttons_.checkedButton() != nullptr;
  for (auto* button : buttons_.buttons())
    button->setFocusPolicy(button->isChecked() || !isAnyChosen ? Qt::StrongFocus : Qt::ClickFocus);
}

void QtRadioGroup::selectRow(std::int32_t row) {
  row_ = row;
  if (auto* button = buttons_.button(row); button != nullptr && row >= 0) {
    button->setChecked(true);
    putChoiceInTabOrder();
    return;
  }
  // An exclusive group does not let its last checked button go.
  buttons_.setExclusive(false);
  for (auto* button : buttons_.buttons()) button->setChecked(false);
  buttons_.setExclusive(true);
  putChoiceInTabOrder();
}

QtIntegerControl::QtIntegerControl(IntegerField& field) : QtControl(field), field_(field) {
  field_.onEdited = [this](int value) {
    value_ = value;
    if (edited_) edited_();
  };
}

void QtIntegerControl::setIntegerValue(std::int32_t value) {
  value_ = value;
  field_.show(value);
}

void QtTextField::setText(std::string_view text) {
  label_.setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void QtSheets::begin(Window& sheet, Window& parent) {
  auto& dialog = dialogOf(sheet);
  auto& owner = dynamic_cast<QtWindow&>(parent).widget();
  if (dialog.parentWidget() != &owner) dialog.setParent(&owner, dialog.windowFlags());
  // It may be disabled while the sheet is up. Without the focus it does not hand it on then, from one disabled
  // control to the next, each of which a screen reader would name.
  focusBefore_ = owner.focusWidget();
  if (focusBefore_ != nullptr) focusBefore_->clearFocus();
  dialog.open();
  dialog.activateWindow();  // without a window manager nothing else does
}

void QtSheets::end(Window& sheet, int returnCode) {
  auto& dialog = dialogOf(sheet);
  dialog.done(returnCode);
  if (auto* owner = dialog.parentWidget()) owner->activateWindow();
  if (focusBefore_ != nullptr) focusBefore_->setFocus();
  focusBefore_ = nullptr;
}

}  // namespace touchpanel
