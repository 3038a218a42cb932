#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

namespace Ui {
class MainWindow;
}

namespace touchpanel {

/// The main window as its interface description lays it out.
class MainWindowWidget final : public QMainWindow {
 public:
  MainWindowWidget();
  ~MainWindowWidget() override;

  Ui::MainWindow& ui() { return *ui_; }
  /// Chooses between the table and the page that says that there is no touchscreen.
  void showRows(int count);
  /// Asked when the user closes the window; false keeps it open.
  std::function<bool()> mayClose;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::unique_ptr<Ui::MainWindow> ui_;
};

}  // namespace touchpanel
