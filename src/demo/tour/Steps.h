#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

// The steps of the tour. Each plays its part, sees that it came out as it should and returns what there is to
// report in a line; StepFailed otherwise.

/// Sees that all three kinds are in the table.
std::string listDevices(Stage& stage);
/// Opens the About sheet and closes it.
std::string showAbout(Stage& stage);
/// Changes settings and applies them, reports the messages that every driver instance got, and goes back to
/// the default settings.
std::string applySettings(Stage& stage);
/// Touches the test points of the try-out page with a finger on the infrared touchscreen. Out of the box it
/// misses them by much.
std::string tryOutBeforeCalibration(Stage& stage);
/// The same once it is calibrated: it hits them.
std::string tryOutAfterCalibration(Stage& stage);
/// The same on the whole screen, to its edges and corners.
std::string tryOutOnTheWholeScreen(Stage& stage);
/// Calibrates by touches alone, OK included, and compares how well the touchscreen hits before and after, on
/// points that were no targets.
std::string calibrateInfraredWith25Targets(Stage& stage);
std::string calibrateOpticalWith4Targets(Stage& stage);
/// Calibrates the touchscreen that keeps its calibration in a file, in a part of the screen that is then
/// spread over all of it.
std::string calibrateConfigurationOnlyInRegion(Stage& stage);
/// The infrared touchscreen refuses a block of its new calibration; the panel says so, and writes it again.
std::string writeARefusedCalibrationAgain(Stage& stage);
/// Puts an earlier calibration of the infrared touchscreen back.
std::string restoreAnEarlierCalibration(Stage& stage);
/// Touches the screen on which the infrared touchscreen lies, to say so, and takes that back.
std::string sayWhichScreen(Stage& stage);
/// Unplugs the calibrated optical touchscreen and plugs it in again: it still hits.
std::string replugOptical(Stage& stage);
/// Resets the infrared touchscreen's calibration, undoes that, and resets it for good.
std::string resetInfrared(Stage& stage);
/// Pictures of what stands in the place of the list, whose states the demo's machine does not come to.
std::string showEmptyLists(Stage& stage);
/// Unplugs one after the other; with the last one the panel ends.
std::string unplugAll(Stage& stage);

/// Opens the settings sheet, chooses a grid of `targets`, 4 or 25, and accepts. A part of other steps.
void chooseCalibrationMode(Stage& stage, int targets);
/// Chooses the entry of the Device menu that performs `action`. A part of other steps.
void chooseFromDeviceMenu(Stage& stage, const char* action);

}  // namespace touchpanel::demo
