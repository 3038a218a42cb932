#include "demo/tour/AboutSteps.h"

#include <QLabel>

namespace touchpanel::demo {

std::string showAbout(Stage& stage) {
  stage.click("btnAbout");
  stage.untilShown("AboutWindow");
  const auto version = stage.the<QLabel>("lbAboutDriverVersion").text().toStdString();
  require(version == "15.1.3.0004", "the About sheet tells version \"" + version + "\"");
  stage.pictures().takeInBothThemes("about");
  stage.click("btnAboutClose");
  stage.untilHidden("AboutWindow");
  return "driver version " + version;
}

}  // namespace touchpanel::demo
