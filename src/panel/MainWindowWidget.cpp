#include "panel/MainWindowWidget.h"

#include <QCloseEvent>

#include "ui_MainWindow.h"

namespace touchpanel {

MainWindowWidget::MainWindowWidget() : ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  showRows(0);
}

MainWindowWidget::~MainWindowWidget() = default;

void MainWindowWidget::showRows(int count) {
  ui_->deviceStack->setCurrentWidget(count > 0 ? ui_->tablePage : ui_->emptyPage);
}

void MainWindowWidget::closeEvent(QCloseEvent* event) { event->setAccepted(!mayClose || mayClose()); }

}  // namespace touchpanel
