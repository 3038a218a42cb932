#pragma once

#include "platform/Application.h"

namespace touchpanel {

/// The cursor over all windows of this program: hidden, busy or as each window has it. Busy wins over
/// hidden, so that a blocking device exchange shows in a calibration window too.
class QtCursor final : public Cursor {
 public:
  ~QtCursor() override;
  void hide() override;
  void show() override;
  void setBusy(bool busy);

  /// Leaves the cursor as each window has it for as long as this lives; for a modal window.
  class Plain {
   public:
    explicit Plain(QtCursor& cursor) : cursor_(cursor) { cursor_.setPlain(true); }
    ~Plain() { cursor_.setPlain(false); }
    Plain(const Plain&) = delete;
    Plain& operator=(const Plain&) = delete;

   private:
    QtCursor& cursor_;
  };

 private:
  void setPlain(bool plain);
  void apply();

  bool hidden_ = false;
  bool busy_ = false;
  bool plain_ = false;
  bool overridden_ = false;
};

}  // namespace touchpanel
