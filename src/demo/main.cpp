#include <QApplication>

#include "demo/Demo.h"
#include "panel/SingleInstance.h"
#include "providers/process/BlockingClock.h"
#include "providers/process/StandardOutput.h"

int main(int argc, char** argv) {
  const auto token = touchpanel::activationToken();
  const QApplication application(argc, argv);
  const touchpanel::SingleInstance instance("touchpanel-demo", token);
  if (!instance.isFirst()) return 0;
  touchpanel::BlockingClock clock;
  touchpanel::StandardOutput diagnostics;
  touchpanel::demo::Demo demo(clock, diagnostics);
  demo.start();
  return demo.run();
}
