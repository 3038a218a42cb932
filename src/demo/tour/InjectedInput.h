#pragma once

#include <memory>

namespace touchpanel::demo {

/// A second client of the X server that moves its pointer and presses its buttons and keys. The program sees
/// what a user at a real machine would cause. Every call is on its way to the server when it returns.
class InjectedInput {
 public:
  /// Connects to the server named by DISPLAY. StepFailed when there is none or it takes no injected input.
  InjectedInput();
  ~InjectedInput();
  InjectedInput(const InjectedInput&) = delete;
  InjectedInput& operator=(const InjectedInput&) = delete;

  /// `x` and `y` in pixels of the screen from its upper-left corner.
  void moveTo(int x, int y);
  void pressLeft();
  void releaseLeft();
  /// A key by its name in the X protocol, as in "Escape", pressed and released while "Control_L" and the like
  /// named by `held` are down; null for none. StepFailed for a name that the keyboard does not have.
  void tapKey(const char* name, const char* held = nullptr);

 private:
  struct Connection;
  unsigned keyCode(const char* name) const;

  std::unique_ptr<Connection> connection_;
};

}  // namespace touchpanel::demo
