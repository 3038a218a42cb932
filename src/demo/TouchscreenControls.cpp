#include "demo/TouchscreenControls.h"

#include "ui_TouchscreenControls.h"

namespace touchpanel::demo {

TouchscreenControls::TouchscreenControls(simulated::SimulatedTouchscreens& machine,
                                         simulated::SimulatedTouchscreen& touchscreen, QWidget* parent)
    : QWidget(parent),
      machine_(machine),
      touchscreen_(touchscreen),
      faults_(faultChoices()),
      ui_(std::make_unique<Ui::TouchscreenControls>()) {
  ui_->setupUi(this);
  const QString name = QString::fromStdString(touchscreen.model().name);
  setObjectName(name);
  ui_->faultBox->setAccessibleName(tr("Fault of %1").arg(name));
  for (const auto& choice : faults_) {
    ui_->faultBox->addItem(choice.title);
    ui_->faultBox->setItemData(ui_->faultBox->count() - 1, choice.explanation, Qt::ToolTipRole);
  }
  connect(ui_->plugButton, &QPushButton::clicked, this, &TouchscreenControls::togglePlug);
  connect(ui_->faultBox, &QComboBox::currentIndexChanged, this, &TouchscreenControls::chooseFault);
  connect(ui_->argumentBox, &QSpinBox::valueChanged, this, &TouchscreenControls::applyFault);
  chooseFault();
  showPlugging();
}

TouchscreenControls::~TouchscreenControls() = default;

void TouchscreenControls::togglePlug() {
  if (machine_.isPluggedIn(touchscreen_))
    machine_.unplug(touchscreen_);
  else
    machine_.plugIn(touchscreen_);
  showPlugging();
  emit pluggingChanged();
}

void TouchscreenControls::chooseFault() {
  const auto& choice = faults_[static_cast<std::size_t>(ui_->faultBox->currentIndex())];
  const QSignalBlocker quiet(ui_->argumentBox);
  ui_->argumentBox->setRange(choice.minimum, choice.maximum);
  ui_->argumentBox->setDisplayIntegerBase(choice.hexadecimal ? 16 : 10);
  ui_->argumentBox->setPrefix(choice.hexadecimal ? QStringLiteral("0x") : QString());
  ui_->argumentBox->setValue(choice.initial);
  ui_->argumentLabel->setText(choice.argumentTitle);
  ui_->argumentLabel->setVisible(!choice.argumentTitle.isEmpty());
  ui_->argumentBox->setVisible(!choice.argumentTitle.isEmpty());
  ui_->faultBox->setToolTip(choice.explanation);
  ui_->faultBox->setAccessibleDescription(choice.explanation);
  applyFault();
}

void TouchscreenControls::applyFault() {
  const auto& choice = faults_[static_cast<std::size_t>(ui_->faultBox->currentIndex())];
  touchscreen_.firmware().setFault({choice.fault, static_cast<std::uint32_t>(ui_->argumentBox->value())});
}

void TouchscreenControls::showPlugging() {
  const bool isPluggedIn = machine_.isPluggedIn(touchscreen_);
  const QString name = QString::fromStdString(touchscreen_.model().name);
  ui_->title->setText(isPluggedIn ? tr("%1: plugged in").arg(name) : tr("%1: unplugged").arg(name));
  ui_->plugButton->setText(isPluggedIn ? tr("Unplug") : tr("Plug in"));
  ui_->plugButton->setAccessibleName(isPluggedIn ? tr("Unplug %1").arg(name) : tr("Plug in %1").arg(name));
}

}  // namespace touchpanel::demo
