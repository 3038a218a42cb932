#pragma once

#include <map>
#include <string>

#include "platform/TouchInputs.h"

namespace touchpanel::testing {

/// Input nodes by path, whose touches the test makes up.
class FakeTouchInputs final : public TouchInputs {
 public:
  struct Node {
    Status openResult = kSuccess;
    bool touches = true;
    bool held = false;
    int attempts = 0;
    FrameListener* listener = nullptr;
  };

  Status open(const std::string& path, std::unique_ptr<TouchInput>& input) override {
    auto& node = nodes[path];
    ++node.attempts;
    if (node.openResult == kSuccess) input = std::make_unique<Input>(node);
    return node.openResult;
  }
  void touch(const std::string& path, const RawFrame& frame) {
    if (nodes[path].listener) nodes[path].listener->frame(frame);
  }

  std::map<std::string, Node> nodes;

 private:
  class Input final : public TouchInput {
   public:
    explicit Input(Node& node) : node_(node) { node_.held = true; }
    ~Input() override {
      node_.held = false;
      node_.listener = nullptr;
    }
    bool reportsTouches() const override { return node_.touches; }
    void listen(FrameListener& listener) override { node_.listener = &listener; }

   private:
    Node& node_;
  };
};

}  // namespace touchpanel::testing
