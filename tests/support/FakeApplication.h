#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Application.h"

namespace touchpanel::testing {

/// A program that remembers how it was ended and goes on.
class FakeApplication final : public Application {
 public:
  void exit(int status) override {
    if (!exitStatus) exitStatus = status;
  }
  void terminate() override { isTerminated = true; }
  bool isEnding() const override { return isTerminated || exitStatus.has_value(); }

  std::optional<int> exitStatus;
  bool isTerminated = false;
};

class FakeAlerts final : public Alerts {
 public:
  struct Panel {
    std::string title;
    std::string message;
    std::string button;
    bool operator==(const Panel&) const = default;
  };
  void show(std::string_view title, std::string_view message, std::string_view button,
            std::string_view advice) override {
    panels.push_back({std::string(title), std::string(message), std::string(button)});
    advices.emplace_back(advice);
    if (onShow) onShow();
  }
  bool ask(std::string_view, std::string_view question, std::string_view, std::string_view,
           std::string_view) override {
    questions.emplace_back(question);
    return answer;
  }

  std::vector<Panel> panels;
  std::vector<std::string> advices;  ///< one for each panel
  std::vector<std::string> questions;
  bool answer = false;
  std::function<void()> onShow;  ///< what happens while the panel is up
};

class FakePresentation final : public Presentation {
 public:
  struct Call {
    int mode = 0;
    int options = 0;
    bool operator==(const Call&) const = default;
  };
  void setSystemUIMode(int mode, int options) override { calls.push_back({mode, options}); }

  std::vector<Call> calls;
};

class FakeCursor final : public Cursor {
 public:
  void hide() override { isHidden = true; }
  void show() override { isHidden = false; }

  bool isHidden = false;
};

}  // namespace touchpanel::testing
