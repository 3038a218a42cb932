#include <QLabel>
#include <QTableWidget>
#include <cstdio>

#include "calibration/CalibrationGrid.h"
#include "demo/measure/AccuracyProbe.h"
#include "demo/tour/CalibrationPlay.h"
#include "demo/tour/Steps.h"
#include "protocol/Packet.h"

namespace touchpanel::demo {
namespace {

simulated::SimulatedTouchscreen& selectInfrared(Stage& stage) {
  auto& infrared = stage.demo().touchscreen(DeviceKind::Infrared);
  stage.select(infrared);
  return infrared;
}

auto storedIn(simulated::SimulatedTouchscreen& touchscreen) {
  return imageOf(touchscreen.firmware().stored().calibParams);
}

auto listedFor(Stage& stage, const simulated::SimulatedTouchscreen& touchscreen) {
  return imageOf(contextOf(*stage.demo().entryOf(touchscreen)).CalibParams);
}

std::string statusText(Stage& stage) { return stage.the<QLabel>("lbStatus").text().toStdString(); }

std::string inPixels(const char* format, double first, double second) {
  char text[160];
  std::snprintf(text, sizeof text, format, first, second);
  return text;
}

}  // namespace

std::string writeARefusedCalibrationAgain(Stage& stage) {
  chooseCalibrationMode(stage, kFourTargets);
  auto& infrared = selectInfrared(stage);
  const auto before = storedIn(infrared);
  CalibrationPlay play(stage, "refused-write");
  play.open("btnCalibrate");
  play.touchAllTargets();
  infrared.firmware().setFault({firmware::Fault::IgnoresCommand, CMD_IR_SET_CALIB_X});
  play.pressOk();
  stage.untilShown("btnRepeatWrite");
  const auto refused = statusText(stage);
  require(storedIn(infrared) != listedFor(stage, infrared), "nothing was refused");
  stage.pictures().take("refused-write-told");
  infrared.firmware().setFault({});
  stage.click("btnRepeatWrite");
  stage.untilHidden("btnRepeatWrite");
  require(storedIn(infrared) == listedFor(stage, infrared) && storedIn(infrared) != before,
          "the calibration was not written again");
  stage.pictures().take("refused-write-repeated");
  return "\"" + refused + "\", then \"" + statusText(stage) + "\"";
}

std::string restoreAnEarlierCalibration(Stage& stage) {
  auto& infrared = selectInfrared(stage);
  const auto before = storedIn(infrared);
  chooseFromDeviceMenu(stage, "actionHistory");
  stage.untilShown("HistoryWindow");
  auto& table = stage.the<QTableWidget>("historyTable");
  require(table.rowCount() >= 3, "the history does not hold what was calibrated");
  // The newest is on top and was made of four touches; the one below it of twenty-five.
  const auto cell = table.visualItemRect(table.item(1, 0));
  stage.click(table.viewport()->mapToGlobal(cell.center()));
  stage.until([&] { return table.currentRow() == 1; }, "the row to be chosen");
  stage.pictures().takeInBothThemes("history");
  stage.click("btnRestore");
  stage.untilHidden("HistoryWindow");
  stage.until([&] { return storedIn(infrared) != before; }, "the calibration to be written back");
  require(storedIn(infrared) == listedFor(stage, infrared), "the list holds another calibration");
  stage.pictures().take("history-restored");
  const auto accuracy = probeAccuracy(infrared, Demo::screen(), stage.demo().fingerClock());
  require(accuracy && accuracy->mean < 2, "it does not hit");
  return inPixels("mean error %.2f px, largest %.2f px", accuracy->mean, accuracy->largest);
}

}  // namespace touchpanel::demo
