#include "app/ScreenNumbers.h"

#include <algorithm>
#include <utility>

#include "platform/Translatable.h"

namespace touchpanel {
namespace {

constexpr float kSmallSide = 160, kSmallMargin = 24;
constexpr Color kPaper{0.95F, 0.96F, 0.97F, 1}, kMarkedPaper{1, 0.84F, 0.2F, 1};
constexpr Color kInk{0.02F, 0.1F, 0.18F, 1};
constexpr float kSmallestHint = 14;

struct TakesKeyboard final : WindowBehaviour {
  bool canBecomeKeyWindow() const override { return true; }
};
const WindowBehaviour kShownOnly;
const TakesKeyboard kWithKeyboard;

}  // namespace

/// One number in its window.
class ScreenNumbers::Number final : public View {
 public:
  Number(Size size, std::size_t number, bool isMarked, bool isFull, ScreenNumbersListener& listener)
      : size_(size), number_(number), isMarked_(isMarked), isFull_(isFull), listener_(listener) {}

  void put(std::unique_ptr<FullScreenWindow> window) {
    window_ = std::move(window);
    window_->setContentView(*this);
    window_->setShieldingLevel();
    window_->makeKeyAndOrderFront();
    if (isFull_ && isMarked_) window_->setInitialFirstResponder(*this);
  }
  void mark(bool isMarked) {
    if (std::exchange(isMarked_, isMarked) != isMarked) window_->setNeedsDisplay();
  }
  void close() { window_->close(); }

  void drawRect(Canvas& canvas) override {
    canvas.fillRect({0, 0, size_.width, size_.height}, isMarked_ ? kMarkedPaper : kPaper);
    const StyledText number{
        "%1", "Arial", size_.height * (isFull_ ? 0.4F : 0.7F), kInk, {{static_cast<double>(number_), 0}}};
    drawCentred(canvas, number, size_.height / 2);
    if (!isFull_) return;
    const float hintSize = std::max(kSmallestHint, size_.height / 40);
    if (isMarked_)
      drawCentred(canvas,
                  {TRANSLATABLE_TEXT("CalibrationScreen", "Touch this screen."), "Arial", 2 * hintSize, kInk},
                  size_.height * 0.2F);
    drawCentred(canvas,
                {TRANSLATABLE_TEXT("CalibrationScreen", "Escape goes back."), "Arial", hintSize, kInk},
                size_.height * 0.1F);
  }
  void mouseDown(Point /*location*/) override {}
  void mouseDragged(Point /*location*/) override {}
  void mouseUp(Point /*location*/) override {
    if (isFull_) listener_.released();
  }
  void keyDown(std::uint16_t keyCode) override {
    if (isFull_ && keyCode == kKeyEscape) listener_.escaped();
  }
  bool acceptsFirstResponder() const override { return true; }
  bool isOpaque() const override { return true; }

 private:
  void drawCentred(Canvas& canvas, const StyledText& text, float middle) const {
    const auto extent = canvas.textExtent(text, {0, 0});
    canvas.drawText(text, {(size_.width - extent.width) / 2, middle - extent.height / 2});
  }

  Size size_;
  std::size_t number_;
  bool isMarked_;
  bool isFull_;
  ScreenNumbersListener& listener_;
  std::unique_ptr<FullScreenWindow> window_;
};

ScreenNumbers::ScreenNumbers(Screen& screen, ScreenNumbersListener& listener)
    : screen_(screen), listener_(listener) {}

ScreenNumbers::~ScreenNumbers() { hide(); }

void ScreenNumbers::showSmall(const Desktop& desktop, std::size_t marked) {
  if (screen_.placesWindows())
    show(desktop, marked, false);
  else
    hide();
}

void ScreenNumbers::showFull(const Desktop& desktop, std::size_t marked) { show(desktop, marked, true); }

void ScreenNumbers::show(const Desktop& desktop, std::size_t marked, bool isFull) {
  if (shown_.empty() || isFull || isFull_ || desktop != desktop_) {
    hide();
    desktop_ = desktop;
    isFull_ = isFull;
    for (std::size_t index = 0; index < desktop.monitors.size(); ++index) add(index, index == marked);
  }
  for (std::size_t index = 0; index < shown_.size(); ++index) shown_[index]->mark(index == marked);
}

void ScreenNumbers::add(std::size_t index, bool isMarked) {
  screen_.setMain(desktop_.monitors[index].connector);
  const auto frame = screen_.mainScreenFrame();
  const Rect corner{kSmallMargin, frame.height - kSmallMargin - kSmallSide, kSmallSide, kSmallSide};
  const Rect area = isFull_ ? frame : corner;
  shown_.push_back(
      std::make_unique<Number>(Size{area.width, area.height}, index + 1, isMarked, isFull_, listener_));
  const WindowBehaviour& behaviour = isFull_ && isMarked ? kWithKeyboard : kShownOnly;
  shown_.back()->put(screen_.createBorderlessWindow(area, behaviour));
}

void ScreenNumbers::hide() {
  for (const auto& number : shown_) number->close();
  before_ = std::move(shown_);
  shown_.clear();
}

}  // namespace touchpanel
