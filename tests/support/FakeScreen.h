#pragma once

#include <memory>
#include <vector>

#include "platform/View.h"

namespace touchpanel::testing {

/// What became of one full-screen window; outlives the window itself.
struct FakeWindowRecord {
  Rect contentRect;
  const WindowBehaviour* behaviour = nullptr;
  View* view = nullptr;
  View* firstResponder = nullptr;
  bool isShielding = false;
  bool isKeyAndFront = false;
  bool isClosed = false;
  bool isDestroyed = false;
  int redrawRequests = 0;
};

class FakeFullScreenWindow final : public FullScreenWindow {
 public:
  explicit FakeFullScreenWindow(std::shared_ptr<FakeWindowRecord> record) : record_(std::move(record)) {}
  ~FakeFullScreenWindow() override { record_->isDestroyed = true; }

  void setNeedsDisplay() override { ++record_->redrawRequests; }
  void close() override { record_->isClosed = true; }
  void setContentView(View& view) override { record_->view = &view; }
  void setShieldingLevel() override { record_->isShielding = true; }
  void makeKeyAndOrderFront() override { record_->isKeyAndFront = true; }
  void setInitialFirstResponder(View& view) override { record_->firstResponder = &view; }

 private:
  std::shared_ptr<FakeWindowRecord> record_;
};

/// A main screen that keeps a record of every full-screen window made on it.
class FakeScreen final : public Screen {
 public:
  void setMain(std::string_view connector) override { main = connector; }
  Rect mainScreenFrame() override { return frame; }
  SurfaceScale mainScreenScale() override { return scale; }
  std::unique_ptr<FullScreenWindow> createBorderlessWindow(const Rect& contentRect,
                                                           const WindowBehaviour& behaviour) override {
    auto record = std::make_shared<FakeWindowRecord>();
    record->contentRect = contentRect;
    record->behaviour = &behaviour;
    windows.push_back(record);
    return std::make_unique<FakeFullScreenWindow>(std::move(record));
  }

  std::string main;  ///< connector
  Rect frame{0, 0, 1920, 1080};
  SurfaceScale scale;
  std::vector<std::shared_ptr<FakeWindowRecord>> windows;
};

}  // namespace touchpanel::testing
