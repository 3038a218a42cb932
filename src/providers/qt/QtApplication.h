#pragma once

#include "platform/Application.h"

namespace touchpanel {

/// The running QApplication. Ending it works at any time, also before its loop runs: the loop is then not
/// started at all.
class QtApplication final : public Application {
 public:
  void exit(int status) override;
  void terminate() override { exit(0); }
  bool isEnding() const override { return isEnding_; }

  /// The process's status, once it is ending.
  int exitStatus() const { return status_; }
  /// Runs the application's loop until it is ended and returns the process's status.
  int run();

 private:
  bool isEnding_ = false;
  int status_ = 0;
};

}  // namespace touchpanel
