#pragma once

#include <memory>

#include "app/MyController.h"
#include "panel/EmptyPage.h"
#include "panel/FactsArea.h"
#include "panel/HistoryForm.h"
#include "panel/PanelControls.h"
#include "panel/PanelPlatform.h"
#include "panel/ScreenForm.h"
#include "panel/SheetDialog.h"
#include "panel/StatusArea.h"
#include "panel/Translations.h"
#include "panel/TryOutPage.h"
#include "panel/TryOutScreen.h"
#include "platform/RecentDiagnostics.h"
#include "providers/qt/QtAlerts.h"
#include "providers/qt/QtApplication.h"
#include "providers/qt/QtRunLoop.h"
#include "providers/qt/QtScreen.h"

namespace touchpanel {

/// The whole control panel on a given platform: its windows, their outlets and the controller behind them.
/// Needs a QApplication that outlives it. One to a process.
class ControlPanel {
 public:
  explicit ControlPanel(const PanelPlatform& platform);
  ~ControlPanel();

  /// Finds and reads the attached touchscreens, which blocks for seconds, and shows the main window, unless
  /// the program is ending by then.
  void start();
  /// start(), then the application's loop until it ends. Returns the process's status.
  int run();

  QtApplication& application() { return application_; }
  MyController& controller() { return controller_; }
  MainWindowWidget& mainWindow() { return mainWindow_; }
  const TryOutPage& tryOutPage() const { return tryOutPage_; }
  TryOutScreen& tryOutScreen() { return tryOutScreen_; }
  QDialog& settingsSheet() { return settingsSheet_; }
  QDialog& aboutSheet() { return aboutSheet_; }
  QDialog& historySheet() { return historySheet_; }
  QDialog& screenSheet() { return screenSheet_; }
  std::string diagnosticsReport();

 private:
  ControllerPorts controllerPorts();
  void connectMainWindow();
  void connectSettingsSheet();
  void connectAboutSheet();
  void connectHistorySheet();
  void connectScreenSheet();
  /// Has the user's use of `button` and of `entry` (may be null) call `action` of the controller.
  void connectCommand(QAbstractButton& button, QAction* entry, void (MyController::*action)());

  Translations translations_;  ///< first: every window takes its texts from here
  PanelPlatform platform_;
  RecentDiagnostics diagnostics_;
  QtApplication application_;
  CallbackGate gate_;
  QtRunLoop runLoop_;
  QtCursor cursor_;
  QtAlerts alerts_;
  QtSheets sheets_;
  QtScreen screen_;
  QtPresentation presentation_;
  ProcessState process_;

  StartUpWindow startUp_;
  MainWindowWidget mainWindow_;
  SheetDialog settingsSheet_;
  Ui::SettingsSheet settings_;
  SheetDialog aboutSheet_;
  Ui::AboutSheet about_;
  SheetDialog historySheet_;
  HistoryForm history_;
  SheetDialog screenSheet_;
  ScreenForm screens_;
  StatusArea statusArea_;
  TranslatedStatusLine statusLine_;
  TranslatedWaitNotice waitNotice_;
  TryOutPage tryOutPage_;
  FactsArea factsArea_;
  EmptyPage emptyPage_;
  TryOutScreen tryOutScreen_;
  PanelControls controls_;
  MyController controller_;
};

}  // namespace touchpanel
