#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <functional>
#include <vector>

#include "platform/Controls.h"
#include "providers/qt/IntegerField.h"

namespace touchpanel {

/// The label whose buddy is `widget`, in the same window; null when there is none.
QLabel* buddyLabelOf(const QWidget& widget);

/// The part that all controls share: `Port` is the port's type. While disabled, a widget that carries the
/// dynamic property "disabledReason" gives it as its tool tip and to assistive technology.
template <typename Port>
class QtControl : public Port {
 public:
  explicit QtControl(QWidget& widget)
      : widget_(widget), label_(buddyLabelOf(widget)), toolTip_(widget.toolTip()) {
    explain();
  }

  void setEnabled(bool enabled) override {
    widget_.setEnabled(enabled);
    if (label_ != nullptr) label_->setEnabled(enabled);
    explain();
  }
  bool isEnabled() const override { return !isDisabled(); }

 private:
  bool isDisabled() const { return widget_.testAttribute(Qt::WA_ForceDisabled); }
  void explain() {
    const QString reason = isDisabled() ? widget_.property("disabledReason").toString() : QString();
    widget_.setToolTip(reason.isEmpty() ? toolTip_ : reason);
    widget_.setAccessibleDescription(reason);
    if (label_ != nullptr) label_->setToolTip(widget_.toolTip());
  }

  QWidget& widget_;
  QLabel* label_;
  QString toolTip_;
};

/// A button, with the menu entries that do the same: they share its state and its title.
class QtButton final : public QtControl<Button> {
 public:
  /// `follower` can be used exactly when this can; null for none.
  explicit QtButton(QAbstractButton& button, std::vector<QAction*> entries = {}, QtButton* follower = nullptr)
      : QtControl(button), button_(button), entries_(std::move(entries)), follower_(follower) {}
  void setEnabled(bool enabled) override;
  void setTitle(std::string_view title) override;

 private:
  QAbstractButton& button_;
  std::vector<QAction*> entries_;
  QtButton* follower_;
};

// Actions given to onEdited are called for each change by the user, never for one by the program.

class QtCheckBox final : public QtControl<CheckBox> {
 public:
  explicit QtCheckBox(QCheckBox& box) : QtControl(box), box_(box) {}
  void setOn(bool on) override { box_.setChecked(on); }
  bool isOn() const override { return box_.isChecked(); }
  void onEdited(const std::function<void()>& action) {
    QObject::connect(&box_, &QCheckBox::clicked, &box_, [action] { action(); });
  }

 private:
  QCheckBox& box_;
};

/// The radio buttons inside one widget, rows in the order in which they were made.
class QtRadioGroup final : public QtControl<RadioGroup> {
 public:
  explicit QtRadioGroup(QWidget& container);
  void selectRow(std::int32_t row) override;
  std::int32_t selectedRow() const override { return row_; }
  void onEdited(std::function<void()> action) { edited_ = std::move(action); }

 private:
  void putChoiceInTabOrder();

  QButtonGroup buttons_;
  std::int32_t row_ = 0;
  std::function<void()> edited_;
};

/// Keeps a value outside the field's range until the user chooses another: showing a stored value must not
/// change it.
class QtIntegerControl final : public QtControl<IntegerControl> {
 public:
  explicit QtIntegerControl(IntegerField& field);
  void setIntegerValue(std::int32_t value) override;
  std::int32_t integerValue() const override { return value_; }
  void onEdited(std::function<void()> action) { edited_ = std::move(action); }

 private:
  IntegerField& field_;
  std::int32_t value_ = 0;
  std::function<void()> edited_;
};

class QtTextField final : public TextField {
 public:
  explicit QtTextField(QLabel& label) : label_(label) {}
  void setText(std::string_view text) override;

 private:
  QLabel& label_;
};

class QtWindow final : public Window {
 public:
  explicit QtWindow(QWidget& widget) : widget_(widget) {}
  /// Desktops here keep a program's windows when another one is used, so only `false` has a meaning.
  void setHidesOnDeactivate(bool /*hides*/) override {}
  void orderOut() override { widget_.hide(); }
  QWidget& widget() { return widget_; }

 private:
  QWidget& widget_;
};

/// Sheets as dialogs that keep their parent window, and only that, from being used. When one ends, the keyboard
/// is again where it was in the parent window. Both windows must be QtWindows, the sheet's widget a QDialog.
class QtSheets final : public Sheets {
 public:
  /// Returns at once; the sheet stays up until end().
  void begin(Window& sheet, Window& parent) override;
  void end(Window& sheet, int returnCode) override;

 private:
  QPointer<QWidget> focusBefore_;
};

}  // namespace touchpanel
