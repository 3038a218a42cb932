#pragma once

#include <QString>
#include <functional>

#include "platform/Application.h"
#include "providers/qt/CallbackGate.h"
#include "providers/qt/QtCursor.h"

class QMessageBox;
class QPushButton;

namespace touchpanel {

/// Message boxes. While one is up no other callback runs, the cursor is visible, and a full-screen window
/// above everything gives way to it.
class QtAlerts final : public Alerts {
 public:
  /// A text of the logic in the user's language.
  using Translation = std::function<QString(std::string_view english)>;

  QtAlerts(CallbackGate& gate, QtCursor& cursor, Translation translated)
      : gate_(gate), cursor_(cursor), translated_(std::move(translated)) {}
  void show(std::string_view title, std::string_view message, std::string_view button,
            std::string_view advice) override;
  bool ask(std::string_view title, std::string_view question, std::string_view advice, std::string_view yes,
           std::string_view no) override;

 private:
  void prepare(QMessageBox& box, std::string_view title, std::string_view message,
               std::string_view advice) const;
  QPushButton* addButton(QMessageBox& box, std::string_view text, int role) const;

  CallbackGate& gate_;
  QtCursor& cursor_;
  Translation translated_;
};

}  // namespace touchpanel
