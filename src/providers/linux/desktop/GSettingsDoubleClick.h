#pragma once

#include <memory>

#include "platform/LibraryInUse.h"
#include "providers/linux/desktop/DesktopDoubleClick.h"

struct _GSettings;  // NOLINT(bugprone-reserved-identifier): the name that GLib gives it

namespace touchpanel {

LibraryInUse glibInUse();

/// Key "double-click" of org.gnome.desktop.peripherals.mouse, in desktops that have it. There is no setting
/// for the double-click area in that schema. A change is stored in the background.
class GSettingsDoubleClick final : public DesktopDoubleClick {
 public:
  GSettingsDoubleClick();
  ~GSettingsDoubleClick() override;
  std::optional<std::chrono::milliseconds> time() const override;
  bool setTime(std::chrono::milliseconds time) override;

 private:
  struct Unref {
    void operator()(_GSettings* settings) const;
  };
  std::unique_ptr<_GSettings, Unref> settings_;
};

}  // namespace touchpanel
