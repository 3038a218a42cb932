#include "demo/SimulatorWindow.h"

#include <cmath>

#include "demo/TouchscreenControls.h"
#include "demo/TouchscreenName.h"
#include "ui_SimulatorWindow.h"

namespace touchpanel::demo {
namespace {

/// Texts that a screen reader can reach and that can be copied.
void makeReadable(QLabel* value, const QLabel* label) {
  value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  value->setProperty("caption", label->text().remove(u':').remove(u'：'));  // as it is spoken
  value->setText(QStringLiteral("–"));
}

}  // namespace

SimulatorWindow::SimulatorWindow(simulated::SimulatedTouchscreens& machine, QWidget* parent)
    : QWidget(parent), machine_(machine), ui_(std::make_unique<Ui::SimulatorWindow>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_QuitOnClose, false);
  for (const auto& touchscreen : machine.all()) addControls(*touchscreen);
  offerMouseRoles();
  makeReadable(ui_->nameValue, ui_->nameLabel);
  makeReadable(ui_->touchedValue, ui_->touchedLabel);
  makeReadable(ui_->rawValue, ui_->rawLabel);
  makeReadable(ui_->calibratedValue, ui_->calibratedLabel);
  makeReadable(ui_->errorBeforeValue, ui_->errorBeforeLabel);
  makeReadable(ui_->errorAfterValue, ui_->errorAfterLabel);
  ui_->mouseRole->setFocus();
}

SimulatorWindow::~SimulatorWindow() = default;

void SimulatorWindow::addControls(simulated::SimulatedTouchscreen& touchscreen) {
  auto* controls = new TouchscreenControls(machine_, touchscreen);
  ui_->touchscreens->addWidget(controls);
  connect(controls, &TouchscreenControls::pluggingChanged, this, &SimulatorWindow::offerMouseRoles);
}

/// The mouse, then each plugged-in touchscreen; the choice stays while it can.
void SimulatorWindow::offerMouseRoles() {
  const auto chosen = ui_->mouseRole->currentData();
  ui_->mouseRole->clear();
  ui_->mouseRole->addItem(tr("Mouse"), -1);
  for (std::size_t i = 0; i < machine_.all().size(); ++i) {
    const auto& touchscreen = *machine_.all()[i];
    if (!machine_.isPluggedIn(touchscreen)) continue;
    const auto name = shownName(touchscreen);
    ui_->mouseRole->addItem(tr("Finger on %1").arg(name), static_cast<int>(i));
  }
  ui_->mouseRole->setCurrentIndex(std::max(0, ui_->mouseRole->findData(chosen)));
}

simulated::SimulatedTouchscreen* SimulatorWindow::fingerOn() const {
  const int chosen = ui_->mouseRole->currentData().toInt();
  return chosen < 0 ? nullptr : machine_.all()[static_cast<std::size_t>(chosen)].get();
}

void SimulatorWindow::showTouch(const simulated::SimulatedTouchscreen& touchscreen,
                                const TouchReading& reading, ScreenSize screen) {
  const auto pair = [](double x, double y) {
    return QStringLiteral("%1, %2").arg(std::lround(x)).arg(std::lround(y));
  };
  const auto pixels = [](double error) { return tr("%L1 pixels").arg(error, 0, 'f', 1); };
  ui_->nameValue->setText(shownName(touchscreen));
  ui_->touchedValue->setText(pair(reading.touched.x * screen.width, reading.touched.y * screen.height));
  ui_->rawValue->setText(pair(reading.raw.x, reading.raw.y));
  ui_->calibratedValue->setText(pair(reading.calibrated.x, reading.calibrated.y));
  ui_->errorBeforeValue->setText(pixels(reading.errorBefore));
  ui_->errorAfterValue->setText(pixels(reading.errorAfter));
}

}  // namespace touchpanel::demo
