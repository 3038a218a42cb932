#include "panel/ControlPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QScreen>

#include "app/VersionLabel.h"
#include "panel/PanelStyle.h"
#include "panel/ProgramIdentity.h"
#include "panel/RunningSystem.h"
#include "platform_build/BuildConstants.h"
#include "providers/qt/SpokenLabels.h"

namespace touchpanel {
namespace {

/// A sheet is laid out before its controls are bound: binding looks for each control's label.
template <typename Form>
Form laidOut(QDialog& sheet) {
  Form form;
  form.setupUi(&sheet);
  return form;
}

/// Why the list is empty, by what the driver service says of itself.
ListState stateOfEmptyList(Status service) {
  if (service == kSuccess) return ListState::Empty;
  return service == kErrorNotPermitted ? ListState::Refused : ListState::ServiceDown;
}

PanelPlatform withToolkit(PanelPlatform platform) {
  platform.libraries.insert(platform.libraries.begin(), qtInUse());
  return platform;
}

}  // namespace

ControlPanel::ControlPanel(const PanelPlatform& platform)
    : platform_(withToolkit(platform)),
      diagnostics_(platform_.diagnostics),
      gate_(application_, diagnostics_),
      runLoop_(gate_),
      alerts_(gate_, cursor_, &alertText),
      screen_(gate_),
      settingsSheet_(&mainWindow_),
      settings_(laidOut<Ui::SettingsSheet>(settingsSheet_)),
      aboutSheet_(&mainWindow_),
      about_(laidOut<Ui::AboutSheet>(aboutSheet_)),
      historySheet_(&mainWindow_),
      history_(historySheet_),
      screenSheet_(&mainWindow_),
      screens_(screenSheet_),
      statusArea_(*mainWindow_.ui().lbStatus, *mainWindow_.ui().btnRepeatWrite),
      statusLine_(statusArea_),
      waitNotice_(cursor_, statusArea_, startUp_),
      tryOutPage_(mainWindow_),
      factsArea_(mainWindow_),
      emptyPage_(mainWindow_),
      tryOutScreen_(mainWindow_),
      controls_(mainWindow_, settingsSheet_, settings_, aboutSheet_, historySheet_, screenSheet_, gate_),
      controller_(outletsOf(controls_), controllerPorts()) {
  makeLabelsSpoken();
  identifyProgram();
  QApplication::setStyle(new PanelStyle);          // the application takes it over
  QApplication::setQuitOnLastWindowClosed(false);  // the controller says when the program ends
  controls_.deviceTableView.setSource(controller_);
  controls_.deviceTableView.onReload = [this](int rows) {
    // Asking the service can block, so a list that holds something does not.
    mainWindow_.showRows(rows,
                         rows > 0 ? ListState::Empty : stateOfEmptyList(platform_.registry.availability()));
  };
  statusArea_.onWait = [this](const QString& text) { mainWindow_.showWait(text); };
  connectMainWindow();
  connectSettingsSheet();
  connectAboutSheet();
  connectHistorySheet();
  connectScreenSheet();
}

ControlPanel::~ControlPanel() = default;

ControllerPorts ControlPanel::controllerPorts() {
  return {.discovery = {.application = application_,
                        .alerts = alerts_,
                        .clock = platform_.clock,
                        .runLoop = runLoop_,
                        .registry = platform_.registry,
                        .usbNotifications = platform_.usbNotifications,
                        .usbServices = platform_.usbServices,
                        .files = platform_.files,
                        .diagnostics = diagnostics_,
                        .waitNotice = waitNotice_,
                        .process = process_,
                        .paths = platform_.paths},
          .sheets = sheets_,
          .screen = screen_,
          .monitors = platform_.monitors,
          .cursor = cursor_,
          .presentation = presentation_,
          .statusLine = statusLine_,
          .history = platform_.history,
          .facts = factsArea_,
          .earlier = history_,
          .screens = screens_,
          .emptyList = emptyPage_};
}

void ControlPanel::start() {
  startUp_.open();
  gate_.pass([this] { controller_.awakeFromNib(); });
  startUp_.hide();
  if (application_.isEnding()) return;
  mainWindow_.show();
  mainWindow_.activateWindow();
  controller_.applicationDidFinishLaunching();
}

int ControlPanel::run() {
  start();
  return application_.run();
}

void ControlPanel::connectCommand(QAbstractButton& button, QAction* entry, void (MyController::*action)()) {
  const auto perform = [this, action] { gate_.pass([&] { (controller_.*action)(); }); };
  QObject::connect(&button, &QAbstractButton::clicked, &button, perform);
  if (entry != nullptr) QObject::connect(entry, &QAction::triggered, &button, perform);
}

void ControlPanel::connectMainWindow() {
  const auto& ui = mainWindow_.ui();
  connectCommand(*ui.btnCalibrate, ui.actionCalibrate, &MyController::Calibration);
  connectCommand(*ui.btnRegionCalibrate, ui.actionRegionCalibrate, &MyController::RegionCalibration);
  connectCommand(*ui.btnReset, ui.actionReset, &MyController::Reset);
  connectCommand(*ui.btnRepeatWrite, ui.actionRepeatWrite, &MyController::RepeatWrite);
  connectCommand(*ui.btnEnableTouch, ui.actionEnableTouch, &MyController::EnableTouch);
  connectCommand(*ui.btnMapping, nullptr, &MyController::Mapping);
  connectCommand(*ui.btnSettings, ui.actionSettings, &MyController::Settings);
  connectCommand(*ui.btnAbout, ui.actionAbout, &MyController::About);
  connectCommand(*ui.btnExit, ui.actionExit, &MyController::Exit);
  QObject::connect(&ui.factsCard->tryOutButton(), &QAbstractButton::clicked, ui.actionTryOut,
                   &QAction::trigger);
  QObject::connect(ui.actionTryOut, &QAction::triggered, &mainWindow_,
                   [this] { tryOutScreen_.open(*screenAt(controller_.monitorOfSelected())); });
  QObject::connect(ui.tabView, &QTabWidget::currentChanged, &mainWindow_,
                   [this](int index) { controller_.didSelectTabViewItem(index); });
  mainWindow_.mayClose = [this] {
    if (!controller_.windowShouldClose()) return false;
    if (controller_.applicationShouldTerminateAfterLastWindowClosed()) application_.terminate();
    return true;
  };
}

void ControlPanel::connectSettingsSheet() {
  QAbstractButton* const choices[] = {settings_.touchMode0, settings_.touchMode1, settings_.touchMode2,
                                      settings_.touchMode3};
  TouchModeDrawing* const drawings[] = {settings_.touchModeDrawing0, settings_.touchModeDrawing1,
                                        settings_.touchModeDrawing2, settings_.touchModeDrawing3};
  for (std::size_t mode = 0; mode < std::size(choices); ++mode) drawings[mode]->setChoice(*choices[mode]);

  connectCommand(*settings_.btnDefault, nullptr, &MyController::SettingsDefault);
  connectCommand(*settings_.btnApply, nullptr, &MyController::SettingsApply);
  connectCommand(*settings_.btnOk, nullptr, &MyController::SettingsOk);
  connectCommand(*settings_.btnCancel, nullptr, &MyController::SettingsCancel);
  settingsSheet_.onDismiss = [this] { gate_.pass([this] { controller_.SettingsCancel(); }); };
  controls_.onSettingsEdited([this] { gate_.pass([this] { controller_.SettingsChange(); }); });
}

void ControlPanel::connectAboutSheet() {
  about_.lbAboutDriverVersion->setText(QString::fromUtf8(kDriverVersion));
  about_.lbAboutBuildVersion->setText(QString::fromUtf8(kBuildVersion));
  about_.aboutLicences->setPlainText(librariesText(platform_.libraries));

  connectCommand(*about_.btnAboutClose, nullptr, &MyController::AboutClose);
  aboutSheet_.onDismiss = [this] { gate_.pass([this] { controller_.AboutClose(); }); };
  QObject::connect(&aboutSheet_, &QDialog::finished, about_.lbCopied, &QLabel::clear);
  QObject::connect(about_.btnCopyReport, &QAbstractButton::clicked, &aboutSheet_, [this] {
    gate_.pass([this] {
      QGuiApplication::clipboard()->setText(QString::fromStdString(diagnosticsReport()));
      about_.lbCopied->setText(QCoreApplication::translate("AboutSheet", "The report is on the clipboard."));
    });
  });
}

void ControlPanel::connectHistorySheet() {
  const auto& ui = mainWindow_.ui();
  connectCommand(*history_.ui().btnHistoryClose, nullptr, &MyController::HistoryClose);
  historySheet_.onDismiss = [this] { gate_.pass([this] { controller_.HistoryClose(); }); };
  QObject::connect(ui.actionHistory, &QAction::triggered, &historySheet_,
                   [this] { gate_.pass([this] { controller_.History(); }); });
  QObject::connect(ui.actionUndoReset, &QAction::triggered, &historySheet_,
                   [this] { gate_.pass([this] { controller_.UndoReset(); }); });
  QObject::connect(history_.ui().btnRestore, &QAbstractButton::clicked, &historySheet_, [this] {
    if (const auto row = history_.selectedRow()) gate_.pass([&] { controller_.Restore(*row); });
  });
}

void ControlPanel::connectScreenSheet() {
  const auto& ui = screens_.ui();
  connectCommand(*ui.btnTouchScreen, nullptr, &MyController::ScreenTouch);
  connectCommand(*ui.btnAssignScreen, nullptr, &MyController::ScreenAssign);
  connectCommand(*ui.btnScreenOk, nullptr, &MyController::ScreenOk);
  connectCommand(*ui.btnScreenCancel, nullptr, &MyController::ScreenCancel);
  screenSheet_.onDismiss = [this] { gate_.pass([this] { controller_.ScreenCancel(); }); };
  QObject::connect(mainWindow_.ui().actionScreens, &QAction::triggered, &screenSheet_,
                   [this] { gate_.pass([this] { controller_.Screens(); }); });
  screens_.onScreen = [this](std::size_t index) { gate_.pass([&] { controller_.ScreenMark(index); }); };
  screens_.onTouchscreen = [this](std::size_t index) {
    gate_.pass([&] { controller_.ScreenMarkTouchscreen(index); });
  };
  screens_.onAssign = [this] { gate_.pass([this] { controller_.ScreenAssign(); }); };
}

std::string ControlPanel::diagnosticsReport() {
  return touchpanel::diagnosticsReport({.versions = runningVersions(platform_.libraries),
                                        .devices = controller_.state().deviceListArray,
                                        .registry = platform_.registry,
                                        .lines = diagnostics_.lines(),
                                        .privateWords = privateWords()});
}

}  // namespace touchpanel
