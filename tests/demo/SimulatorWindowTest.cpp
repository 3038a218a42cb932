#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <optional>

#include <gmock/gmock.h>

#include "demo/SimulatorWindow.h"

namespace touchpanel::demo {
namespace {

class SimulatorWindowTest : public testing::Test {
 protected:
  SimulatorWindowTest() {
    for (auto& model : simulated::exampleTouchscreens()) machine_.plugIn(machine_.add(std::move(model)));
    window_.emplace(machine_);
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&*window_));
  }
  template <typename Widget>
  Widget& in(const char* touchscreen, const char* name) {
    return *window_->findChild<QWidget*>(QString::fromLatin1(touchscreen))
                ->findChild<Widget*>(QString::fromLatin1(name));
  }
  QString shown(const char* label) { return window_->findChild<QLabel*>(QString::fromLatin1(label))->text(); }
  simulated::SimulatedTouchscreen& optical() { return *machine_.all()[1]; }

  simulated::SimulatedTouchscreens machine_;
  std::optional<SimulatorWindow> window_;
};

TEST_F(SimulatorWindowTest, PlugsATouchscreenOutAndInByKeyboard) {
  auto& button = in<QPushButton>("Optical", "plugButton");
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_FALSE(machine_.isPluggedIn(optical()));
  EXPECT_EQ(button.text(), "Plug in");
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_TRUE(machine_.isPluggedIn(optical()));
  EXPECT_EQ(button.text(), "Unplug");
}

TEST_F(SimulatorWindowTest, GivesATouchscreenTheFaultThatIsChosenWithItsNumber) {
  auto& faults = in<QComboBox>("Optical", "faultBox");
  auto& argument = in<QSpinBox>("Optical", "argumentBox");
  EXPECT_FALSE(argument.isVisible());
  for (int i = 0; i < faults.count(); ++i) {
    faults.setFocus();
    QTest::keyClick(&faults, i == 0 ? Qt::Key_Home : Qt::Key_Down);
    EXPECT_EQ(static_cast<int>(optical().firmware().fault().fault), i);
    EXPECT_EQ(argument.isVisible(), argument.value() != 0) << faults.currentText().toStdString();
  }
  faults.setCurrentIndex(static_cast<int>(firmware::Fault::DiesAfterPackets));
  argument.setValue(7);
  EXPECT_EQ(optical().firmware().fault(), (firmware::FaultSetting{firmware::Fault::DiesAfterPackets, 7}));
  EXPECT_EQ(machine_.all()[0]->firmware().fault(), firmware::FaultSetting{});
}

TEST_F(SimulatorWindowTest, MakesTheMouseAMouseAgainWhenItsTouchscreenIsUnplugged) {
  auto& role = *window_->findChild<QComboBox*>(QStringLiteral("mouseRole"));
  EXPECT_EQ(window_->fingerOn(), nullptr);
  role.setCurrentIndex(2);
  EXPECT_EQ(window_->fingerOn(), &optical());
  in<QPushButton>("Infrared", "plugButton").click();
  EXPECT_EQ(window_->fingerOn(), &optical());
  in<QPushButton>("Optical", "plugButton").click();
  EXPECT_EQ(window_->fingerOn(), nullptr);
  EXPECT_EQ(role.count(), 2);
}

TEST_F(SimulatorWindowTest, TellsHowTheLastTouchFared) {
  TouchReading reading{{0.25, 0.5}, {8000, 17000}, {8192, 16384}};
  reading.errorBefore = 20.04;
  reading.errorAfter = 0.56;
  window_->showTouch(optical(), reading, {1280, 1024});
  EXPECT_EQ(shown("nameValue"), "Optical");
  EXPECT_EQ(shown("touchedValue"), "320, 512");
  EXPECT_EQ(shown("rawValue"), "8000, 17000");
  EXPECT_EQ(shown("calibratedValue"), "8192, 16384");
  EXPECT_EQ(shown("errorBeforeValue"), "20.0 pixels");
  EXPECT_EQ(shown("errorAfterValue"), "0.6 pixels");
}

}  // namespace
}  // namespace touchpanel::demo
