#include "demo/TouchscreenControls.h"

#include "demo/TouchscreenName.h"
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
  const QString name = shownName(touchscreen);
  setObjectName(QString::fromStdString(touchscreen.model().name));
  auto policy = ui_->argumentBox->sizePolicy();
  policy.setRetainSizeWhenHidden(true);  // the window keeps its size whatever is chosen
  ui_->argumentBox->setSizePolicy(policy);
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
  const auto& choice = chosenFault();
  ui_->faultBox->setToolTip(choice.explanation);
  ui_->faultBox->setAccessibleDescription(choice.explanation);
  ui_->argumentBox->setVisible(choice.argument.has_value());
  showArgument(choice.argument.value_or(FaultArgument()));
  applyFault();
}

const FaultChoice& TouchscreenControls::chosenFault() const {
  return faults_[static_cast<std::size_t>(ui_->faultBox->currentIndex())];
}

void TouchscreenControls::showArgument(const FaultArgument& argument) {
  const QSignalBlocker quiet(ui_->argumentBox);
  ui_->argumentBox->setRange(argument.minimum, argument.maximum);
  ui_->argumentBox->setDisplayIntegerBase(argument.base);
  ui_->argumentBox->setPrefix(argument.prefix);
  ui_->argumentBox->setSuffix(argument.suffix);
  ui_->argumentBox->setValue(argument.initial);
  ui_->argumentBox->setToolTip(argument.meaning);
  ui_->argumentBox->setAccessibleName(argument.meaning);
}

void TouchscreenControls::applyFault() {
  touchscreen_.firmware().setFault(
      {chosenFault().fault, static_cast<std::uint32_t>(ui_->argumentBox->value())});
}

void TouchscreenControls::showPlugging() {
  const bool isPluggedIn = machine_.isPluggedIn(touchscreen_);
  const QString name = shownName(touchscreen_);
  ui_->title->setText(isPluggedIn ? tr("%1: plugged in").arg(name) : tr("%1: unplugged").arg(name));
  ui_->plugButton->setText(isPluggedIn ? tr("Unplug") : tr("Plug in"));
  ui_->plugButton->setAccessibleName(isPluggedIn ? tr("Unplug %1").arg(name) : tr("Plug in %1").arg(name));
}

}  // namespace touchpanel::demo
