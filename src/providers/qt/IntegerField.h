#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QSlider;
class QSpinBox;

namespace touchpanel {

/// A whole number to be found by feel or typed exactly: a slider, a spin box with the unit, and the range
/// beside them. Both are called after the label whose buddy this is.
class IntegerField final : public QWidget {
 public:
  explicit IntegerField(QWidget* parent = nullptr);

  void setMinimum(int minimum);
  void setMaximum(int maximum);
  void setSingleStep(int step);
  void setSuffix(const QString& suffix);
  /// Shows `value`, clamped to the range, without calling `onEdited`.
  void show(int value);

  QSpinBox& spinBox() { return *spinBox_; }
  QSlider& slider() { return *slider_; }
  /// Called with each value that the user chooses.
  std::function<void(int)> onEdited;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void edited(int value);
  void describeRange();

  QSlider* slider_;
  QSpinBox* spinBox_;
  QLabel* range_;
};

}  // namespace touchpanel

using touchpanel::IntegerField;  // Designer's files know no namespaces
