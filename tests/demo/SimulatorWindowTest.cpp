#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include "demo/SimulatorWindow.h"

namespace touchpanel::demo {
namespace {

class SimulatorWindowTest : public testing::Test {
 protected:
  SimulatorWindowTest() {
    for (auto& model : simulated::exampleTouchscreens()) machine_.plugIn(machine_.add(std::move(model)));
    window_.emplace(machine_);
    window_->show();
  }
  template <typename Widget>
  Widget& in(const char* touchscreen, const char* name) {
    return *window_->findChild<QWidget*>(touchscreen)->findChild<Widget*>(name);
  }
  simulated::SimulatedTouchscreen& optical() { return *machine_.all()[1]; }

  simulated::SimulatedTouchscreens machine_;
  std::optional<SimulatorWindow> window_;
};

TEST_F(SimulatorWindowTest, GivesATouchscreenTheFaultThatIsChosenWithItsNumber) {
  auto& faults = in<QComboBox>("Optical", "faultBox");
  auto& argument = in<QSpinBox>("Optical", "argumentBox");
  for (int i = 0; i < faults.count(); ++i) {
    QTest::keyClick(&faults, i == 0 ? Qt::Key_Home : Qt::Key_Down);
    EXPECT_EQ(static_cast<int>(optical().firmware().fault().fault), i);
    EXPECT_EQ(argument.isVisible(), argument.value() != 0) << i;
  }
  faults.setCurrentIndex(static_cast<int>(firmware::Fault::DiesAfterPackets));
  argument.setValue(7);
  EXPECT_EQ(optical().firmware().fault(), (firmware::FaultSetting{firmware::Fault::DiesAfterPackets, 7}));
  EXPECT_EQ(machine_.all()[0]->firmware().fault(), firmware::FaultSetting{});
}

TEST_F(SimulatorWindowTest, MakesTheMouseAMouseAgainWhenItsTouchscreenIsUnplugged) {
  auto& role = *window_->findChild<QComboBox*>("mouseRole");
  EXPECT_EQ(window_->fingerOn(), nullptr);
  role.setCurrentIndex(2);
  in<QPushButton>("Infrared", "plugButton").click();
  EXPECT_EQ(window_->fingerOn(), &optical());
  auto& plug = in<QPushButton>("Optical", "plugButton");
  QTest::keyClick(&plug, Qt::Key_Space);
  EXPECT_EQ(window_->fingerOn(), nullptr);
  EXPECT_EQ(role.count(), 2);
  EXPECT_EQ(plug.text(), "Plug in");
}

TEST_F(SimulatorWindowTest, ShowsHowTheLastTouchFared) {
  TouchReading reading{{0.25, 0.5}, {8000, 17000}, {8192, 16384}};
  reading.errorBefore = 20.04;
  reading.errorAfter = 0.56;
  window_->showTouch(optical(), reading, {1280, 1024});
  QStringList shown;
  for (const char* label :
       {"nameValue", "touchedValue", "rawValue", "calibratedValue", "errorBeforeValue", "errorAfterValue"})
    shown += window_->findChild<QLabel*>(label)->text();
  EXPECT_EQ(shown.join(" | "), "Optical | 320, 512 | 8000, 17000 | 8192, 16384 | 20.0 pixels | 0.6 pixels");
}

}  // namespace
}  // namespace touchpanel::demo
