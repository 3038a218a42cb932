#pragma once

namespace touchpanel {

/// The part of the main controller that a finished calibration talks to.
class TableReloader {
 public:
  virtual ~TableReloader() = default;
  virtual void reloadTableViewData() = 0;
};

}  // namespace touchpanel
