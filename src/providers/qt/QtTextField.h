#pragma once

#include <QLabel>

#include "platform/Controls.h"

namespace touchpanel {

class QtTextField final : public TextField {
 public:
  explicit QtTextField(QLabel& label) : label_(label) {}
  void setText(std::string_view text) override {
    label_.setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  }

 private:
  QLabel& label_;
};

}  // namespace touchpanel
