#include "demo/tour/Step.h"

#include "demo/tour/AboutSteps.h"
#include "demo/tour/CalibrationSteps.h"
#include "demo/tour/DeviceSteps.h"
#include "demo/tour/SettingsSteps.h"
#include "demo/tour/TryOutSteps.h"

namespace touchpanel::demo {

const std::vector<Step>& steps() {
  static const std::vector<Step> table = {
      {"list the touchscreens", &listDevices},
      {"show what this is", &showAbout},
      {"change settings and apply them", &applySettings},
      {"try out the infrared one", &tryOutBeforeCalibration},
      {"calibrate the infrared one with 25 targets", &calibrateInfraredWith25Targets},
      {"try out the infrared one again", &tryOutAfterCalibration},
      {"calibrate the optical one with 4 targets", &calibrateOpticalWith4Targets},
      {"calibrate the configuration-only one in a region", &calibrateConfigurationOnlyInRegion},
      {"unplug the optical one and plug it in again", &replugOptical},
      {"reset the infrared one", &resetInfrared},
      {"unplug all", &unplugAll},
  };
  return table;
}

}  // namespace touchpanel::demo
