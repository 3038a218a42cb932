#include "providers/qt/IntegerField.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

#include "providers/qt/QtControls.h"

namespace touchpanel {

IntegerField::IntegerField(QWidget* parent)
    : QWidget(parent), slider_(new QSlider(Qt::Horizontal)), spinBox_(new QSpinBox), range_(new QLabel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  row->addWidget(slider_, 1);
  row->addWidget(spinBox_);
  row->addWidget(range_);
  slider_->setMinimumSize(80, 36);  // a finger's width
  spinBox_->setMinimumSize(120, 36);
  spinBox_->setAlignment(Qt::AlignRight);
  range_->setMinimumWidth(130);
  setFocusProxy(slider_);  // the first of the two: the tabulator key goes from left to right
  connect(slider_, &QSlider::valueChanged, this, [this](int value) { edited(value); });
  connect(spinBox_, &QSpinBox::valueChanged, this, [this](int value) { edited(value); });
}

void IntegerField::setMinimum(int minimum) {
  const QSignalBlocker quietSlider(slider_);
  const QSignalBlocker quietSpinBox(spinBox_);
  slider_->setMinimum(minimum);
  spinBox_->setMinimum(minimum);
  describeRange();
}

void IntegerField::setMaximum(int maximum) {
  const QSignalBlocker quietSlider(slider_);
  const QSignalBlocker quietSpinBox(spinBox_);
  slider_->setMaximum(maximum);
  spinBox_->setMaximum(maximum);
  describeRange();
}

void IntegerField::setSingleStep(int step) {
  slider_->setSingleStep(step);
  slider_->setPageStep(step * 5);
  spinBox_->setSingleStep(step);
}

void IntegerField::setSuffix(const QString& suffix) {
  spinBox_->setSuffix(suffix);
  describeRange();
}

void IntegerField::showEvent(QShowEvent* /*event*/) {
  const auto* label = buddyLabelOf(*this);
  if (label == nullptr) return;
  const QString name = label->text().remove(u'&');
  for (QWidget* part :
       {static_cast<QWidget*>(this), static_cast<QWidget*>(spinBox_), static_cast<QWidget*>(slider_)})
    part->setAccessibleName(name);
}

void IntegerField::show(int value) {
  const QSignalBlocker quietSlider(slider_);
  const QSignalBlocker quietSpinBox(spinBox_);
  slider_->setValue(value);
  spinBox_->setValue(value);
}

void IntegerField::edited(int value) {
  show(value);
  if (onEdited) onEdited(value);
}

void IntegerField::describeRange() {
  range_->setText(QCoreApplication::translate("IntegerField", "%1 to %2%3")
                      .arg(spinBox_->minimum())
                      .arg(spinBox_->maximum())
                      .arg(spinBox_->suffix()));
}

}  // namespace touchpanel
