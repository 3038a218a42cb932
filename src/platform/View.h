#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/Canvas.h"
#include "platform/Geometry.h"
#include "platform/SurfaceScale.h"

namespace touchpanel {

/// Virtual key codes that views act on.
inline constexpr std::uint16_t kKeyReturn = 36;
inline constexpr std::uint16_t kKeyEscape = 53;

/// Something that draws itself and takes pointer and key events. Locations are view coordinates of the
/// content, which equal window coordinates where the view fills its window.
class View {
 public:
  virtual ~View() = default;
  /// Paints everything. May end what the view is doing and close its window.
  virtual void drawRect(Canvas& canvas) = 0;
  virtual void mouseDown(Point location) = 0;
  virtual void mouseDragged(Point location) = 0;
  virtual void mouseUp(Point location) = 0;
  /// The pointer moved with no button held.
  virtual void mouseMoved(Point /*location*/) {}
  virtual void keyDown(std::uint16_t keyCode) = 0;
  virtual bool acceptsFirstResponder() const = 0;
  virtual bool isOpaque() const = 0;
};

/// What a view may ask of the window that shows it.
class ViewWindow {
 public:
  virtual ~ViewWindow() = default;
  /// Asks for a redraw of the whole view, soon, from the run loop. Requests before that redraw are merged.
  virtual void setNeedsDisplay() = 0;
  /// Takes the window away. No event reaches the view afterwards. Safe inside drawRect and event handlers: a
  /// provider destroys nothing before it is back in the run loop.
  virtual void close() = 0;
};

/// How a window answers the system when keyboard focus is offered to it.
class WindowBehaviour {
 public:
  virtual ~WindowBehaviour() = default;
  virtual bool canBecomeKeyWindow() const { return false; }
  virtual bool canBecomeMainWindow() const { return false; }
};

/// A window without title bar or border whose content is one view.
class FullScreenWindow : public ViewWindow {
 public:
  /// `view` is not owned and must outlive the window or its close().
  virtual void setContentView(View& view) = 0;
  /// Above every other window, menu and dock.
  virtual void setShieldingLevel() = 0;
  virtual void makeKeyAndOrderFront() = 0;
  /// Gives the keyboard to the content view when it accepts it.
  virtual void setInitialFirstResponder(View& view) = 0;
};

/// The main screen and full-screen windows on it.
class Screen {
 public:
  virtual ~Screen() = default;
  /// Makes the screen at `connector` the main one; the primary one where there is none.
  virtual void setMain(std::string_view connector) = 0;
  /// Frame of the main screen, in points.
  virtual Rect mainScreenFrame() = 0;
  virtual SurfaceScale mainScreenScale() = 0;
  /// Whether a window lies where createBorderlessWindow() says; else it covers its screen.
  virtual bool placesWindows() const { return true; }
  /// A window of that content rectangle, not yet shown. `behaviour` must outlive it.
  virtual std::unique_ptr<FullScreenWindow> createBorderlessWindow(const Rect& contentRect,
                                                                   const WindowBehaviour& behaviour) = 0;
};

}  // namespace touchpanel
