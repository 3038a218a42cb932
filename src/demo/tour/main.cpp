#include <QApplication>
#include <QDir>
#include <QTimer>
#include <cstdio>
#include <exception>

#include "demo/tour/Steps.h"
#include "platform/RecentDiagnostics.h"
#include "providers/process/BlockingClock.h"

namespace {

using namespace touchpanel;
using namespace touchpanel::demo;

struct Step {
  const char* title;
  std::string (*play)(Stage&);
};

/// In this order; the last one ends the panel.
constexpr Step kSteps[] = {
    {"list the touchscreens", listDevices},
    {"show what this is", showAbout},
    {"change settings and apply them", applySettings},
    {"try out the infrared one", tryOutBeforeCalibration},
    {"calibrate the infrared one with 25 targets", calibrateInfraredWith25Targets},
    {"try out the infrared one again", tryOutAfterCalibration},
    {"try it out on the whole screen", tryOutOnTheWholeScreen},
    {"calibrate the optical one with 4 targets", calibrateOpticalWith4Targets},
    {"calibrate the configuration-only one in a region", calibrateConfigurationOnlyInRegion},
    {"be refused by the infrared one, and write again", writeARefusedCalibrationAgain},
    {"put an earlier calibration of the infrared one back", restoreAnEarlierCalibration},
    {"say by touch on which screen the infrared one lies", sayWhichScreen},
    {"unplug the optical one and plug it in again", replugOptical},
    {"reset the infrared one", resetInfrared},
    {"show what stands in the place of an empty list", showEmptyLists},
    {"unplug all", unplugAll},
};

/// The real clock, and a picture of what the user sees while it makes the panel wait for the first time.
class PicturingClock final : public Clock {
 public:
  PicturingClock(Clock& clock, Pictures& pictures) : clock_(clock), pictures_(pictures) {}
  void sleep(std::chrono::milliseconds duration) override {
    if (!isTaken_) pictures_.takeAsItIs("start-up");
    isTaken_ = true;
    clock_.sleep(duration);
  }

 private:
  Clock& clock_;
  Pictures& pictures_;
  bool isTaken_ = false;
};

/// Keeps the panel's lines off standard output, where each step has its own.
class NoDiagnostics final : public Diagnostics {
 public:
  void line(std::string_view) override {}
};

void print(std::size_t number, const char* title, const std::string& outcome) {
  std::printf("%2zu. %s: %s\n", number, title, outcome.c_str());
  std::fflush(stdout);
}

/// Plays all steps, a line for each; whether every step did what it should.
bool play(Demo& demo, Pictures& pictures) {
  const char* title = "begin";
  std::size_t number = 0;
  try {
    Stage stage(demo, pictures);
    for (const auto& step : kSteps) {
      title = step.title;
      ++number;
      print(number, title, step.play(stage));
    }
    return true;
  } catch (const std::exception& failure) {
    print(number, title, std::string("FAILED: ") + failure.what());
    pictures.takeAsItIs("failed");
    return false;
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const auto arguments = QCoreApplication::arguments();
  if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
    std::fprintf(stderr, "usage: touchpanel-tour OUTPUT-DIRECTORY\n");
    return 2;
  }
  Pictures pictures(arguments[1]);
  BlockingClock realClock;
  PicturingClock clock(realClock, pictures);
  NoDiagnostics diagnostics;
  Demo demo(clock, diagnostics);
  demo.start();
  bool isDone = false;
  QTimer::singleShot(0, [&] {
    isDone = play(demo, pictures);
    demo.application().exit(isDone ? 0 : 1);
  });
  const int status = demo.run();
  std::printf("The panel has ended with status %d.\n", status);
  std::fflush(stdout);
  return isDone ? status : 1;
}
