#pragma once

namespace touchpanel {

/// Updates the table of touchscreens after a calibration. Implemented by the main controller.
class TableReloader {
 public:
  virtual ~TableReloader() = default;
  virtual void reloadTableViewData() = 0;
};

}  // namespace touchpanel
