#include <QApplication>

#include "demo/Demo.h"
#include "providers/process/BlockingClock.h"
#include "providers/process/StandardOutput.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  touchpanel::BlockingClock clock;
  touchpanel::StandardOutput diagnostics;
  touchpanel::demo::Demo demo(clock, diagnostics);
  demo.start();
  return demo.run();
}
