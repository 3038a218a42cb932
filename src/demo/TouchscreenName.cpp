#include "demo/TouchscreenName.h"

#include <QCoreApplication>

namespace touchpanel::demo {
namespace {

// So that the translation tool sees the names of the examples.
[[maybe_unused]] constexpr const char* kNames[] = {
    QT_TRANSLATE_NOOP("SimulatedTouchscreen", "Infrared"),
    QT_TRANSLATE_NOOP("SimulatedTouchscreen", "Optical"),
    QT_TRANSLATE_NOOP("SimulatedTouchscreen", "Configuration only"),
};

}  // namespace

QString shownName(const simulated::SimulatedTouchscreen& touchscreen) {
  return QCoreApplication::translate("SimulatedTouchscreen", touchscreen.model().name.c_str());
}

}  // namespace touchpanel::demo
