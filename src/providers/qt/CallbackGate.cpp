#include "providers/qt/CallbackGate.h"

#include <exception>
#include <string>

namespace touchpanel {

bool CallbackGate::pass(const std::function<void()>& callback) {
  if (!isOpen()) return false;
  const Closed closed(*this);
  try {
    callback();
  } catch (const std::exception& error) {
    diagnostics_.line(std::string("internal error: ") + error.what());
  }
  return true;
}

void CallbackGate::whenOpen(QObject& context, std::function<void()> retry) {
  waiting_.emplace_back(&context, std::move(retry));
}

void CallbackGate::leave() {
  if (--depth_ > 0) return;
  for (auto& [context, retry] : std::exchange(waiting_, {}))
    if (context) QMetaObject::invokeMethod(context, std::move(retry), Qt::QueuedConnection);
}

}  // namespace touchpanel
