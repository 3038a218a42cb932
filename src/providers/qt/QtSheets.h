#pragma once

#include "platform/Controls.h"

namespace touchpanel {

/// Sheets as dialogs that keep their parent window, and only that, from being used. Both windows must be
/// QtWindows, the sheet's widget a QDialog.
class QtSheets final : public Sheets {
 public:
  /// Returns at once; the sheet stays up until end().
  void begin(Window& sheet, Window& parent) override;
  void end(Window& sheet, int returnCode) override;
};

}  // namespace touchpanel
