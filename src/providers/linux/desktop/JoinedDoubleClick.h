#pragma once

#include "platform/Registry.h"
#include "providers/linux/desktop/DesktopDoubleClick.h"

namespace touchpanel {

/// Decorator of a registry: its double-click time is the desktop's.
///
/// The driver service has its own, for the double-tap help; it belongs to the whole machine and knows no
/// user's desktop. The desktop's is the user's own and is reached from the user's session only, which is
/// where the control panel runs. So it is joined here: reading "HIDClickTime" gives the desktop's time where
/// there is one, and writing it sets both. The area is the service's alone; desktops have no such setting.
class JoinedDoubleClick final : public Registry {
 public:
  /// Neither is owned.
  JoinedDoubleClick(Registry& service, DesktopDoubleClick& desktop) : service_(service), desktop_(desktop) {}

  Status availability() override { return service_.availability(); }
  std::vector<RegistryObject> instancesOf(std::string_view className) override {
    return service_.instancesOf(className);
  }
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override {
    return service_.childrenOf(parent);
  }
  bool conformsTo(RegistryObject object, std::string_view className) override {
    return service_.conformsTo(object, className);
  }
  std::optional<Dictionary> properties(RegistryObject object) override;
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override;

 private:
  Registry& service_;
  DesktopDoubleClick& desktop_;
};

}  // namespace touchpanel
