#pragma once

#include "app/CalibrationRestoring.h"
#include "app/ControllerState.h"
#include "app/HistoryView.h"
#include "platform/Controls.h"

namespace touchpanel {

/// The sheet of the selected touchscreen's earlier calibrations. It stays with that touchscreen when another one
/// is selected meanwhile.
class HistorySheet {
 public:
  struct Ports {
    Window& sheet;
    Window& parent;
    Sheets& sheets;
    StatusLine& statusLine;
    HistoryView& view;
  };
  HistorySheet(const ControllerState& state, const EarlierCalibrations& earlier,
               CalibrationRestoring& restoring, const Ports& ports)
      : state_(state), earlier_(earlier), restoring_(restoring), ports_(ports) {}

  void open();
  void close();
  /// Closes the sheet and puts the record back that is shown in `row`; nothing outside the list.
  void restore(std::size_t row);

  /// Puts back what the last reset of the selected touchscreen discarded.
  void undoReset();

 private:
  bool isListed(const DeviceEntry& entry) const;

  const ControllerState& state_;
  const EarlierCalibrations& earlier_;
  CalibrationRestoring& restoring_;
  Ports ports_;
  DeviceEntry entry_;  ///< whose history is shown; null while the sheet is closed
  ShownHistory shown_;
};

}  // namespace touchpanel
