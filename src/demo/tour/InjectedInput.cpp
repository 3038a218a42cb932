#include "demo/tour/InjectedInput.h"

// The X headers define None, Bool and Status as macros: they come last, in a file that sees no toolkit.
#include <string>

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include "demo/tour/StepFailed.h"

namespace touchpanel::demo {

struct InjectedInput::Connection {
  Display* display = XOpenDisplay(nullptr);
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    if (display != nullptr) XCloseDisplay(display);
  }
};

InjectedInput::InjectedInput() : connection_(std::make_unique<Connection>()) {
  if (connection_->display == nullptr) throw StepFailed("there is no X server to inject events into");
  int event = 0;
  int error = 0;
  int major = 0;
  int minor = 0;
  if (XTestQueryExtension(connection_->display, &event, &error, &major, &minor) == False)
    throw StepFailed("the X server takes no injected events");
}

InjectedInput::~InjectedInput() = default;

void InjectedInput::moveTo(int x, int y) {
  XTestFakeMotionEvent(connection_->display, -1, x, y, CurrentTime);
  XFlush(connection_->display);
}

void InjectedInput::pressLeft() {
  XTestFakeButtonEvent(connection_->display, Button1, True, CurrentTime);
  XFlush(connection_->display);
}

void InjectedInput::releaseLeft() {
  XTestFakeButtonEvent(connection_->display, Button1, False, CurrentTime);
  XFlush(connection_->display);
}

unsigned InjectedInput::keyCode(const char* name) const {
  const KeyCode code = XKeysymToKeycode(connection_->display, XStringToKeysym(name));
  if (code == 0) throw StepFailed(std::string("the X server's keyboard has no key ") + name);
  return code;
}

void InjectedInput::tapKey(const char* name, const char* held) {
  const unsigned key = keyCode(name);
  if (held != nullptr) XTestFakeKeyEvent(connection_->display, keyCode(held), True, CurrentTime);
  XTestFakeKeyEvent(connection_->display, key, True, CurrentTime);
  XTestFakeKeyEvent(connection_->display, key, False, CurrentTime);
  if (held != nullptr) XTestFakeKeyEvent(connection_->display, keyCode(held), False, CurrentTime);
  XFlush(connection_->display);
}

}  // namespace touchpanel::demo
