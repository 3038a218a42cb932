#include "driver/PublishedInstances.h"

#include <array>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

namespace {
constexpr std::array<std::string_view, 3> kClasses = {class_name::kTouchDriver, class_name::kPointingDevice,
                                                      class_name::kHidSystem};
}

RegistryObject PublishedInstances::publish(PublishedInstance& instance) {
  instance.setDoubleClick(hidSystem_.clickTime(), hidSystem_.clickArea());
  entries_.push_back({next_, &instance});
  next_ += kClasses.size();
  return entries_.back().driver;
}

void PublishedInstances::withdraw(const PublishedInstance& instance) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.instance == &instance; });
}

std::vector<RegistryObject> PublishedInstances::objectsOf(const PublishedInstance& instance) const {
  for (const auto& entry : entries_)
    if (entry.instance == &instance) return {entry.driver, entry.driver + 1, entry.driver + 2};
  return {};
}

const PublishedInstances::Entry* PublishedInstances::entryOf(RegistryObject object) const {
  for (const auto& entry : entries_)
    if (object >= entry.driver && object - entry.driver < kClasses.size()) return &entry;
  return nullptr;
}

std::string_view PublishedInstances::classOf(RegistryObject object) const {
  const auto* entry = entryOf(object);
  return entry ? kClasses[object - entry->driver] : std::string_view();
}

std::vector<RegistryObject> PublishedInstances::instancesOf(std::string_view className) {
  std::vector<RegistryObject> found;
  for (const auto& entry : entries_)
    for (RegistryObject i = 0; i < kClasses.size(); ++i)
      if (kClasses[i] == className) found.push_back(entry.driver + i);
  return found;
}

std::vector<RegistryObject> PublishedInstances::childrenOf(RegistryObject parent) {
  const auto* entry = entryOf(parent);
  if (!entry || entry->driver != parent) return {};
  return {parent + 1, parent + 2};
}

bool PublishedInstances::conformsTo(RegistryObject object, std::string_view className) {
  return entryOf(object) && classOf(object) == className;
}

std::optional<Dictionary> PublishedInstances::properties(RegistryObject object) {
  const auto* entry = entryOf(object);
  if (!entry) return std::nullopt;
  if (object == entry->driver) return entry->instance->properties();
  if (classOf(object) == class_name::kHidSystem) return hidSystem_.properties();
  return Dictionary{{property::kLocationID, std::int64_t{entry->instance->locationId()}}};
}

Status PublishedInstances::setProperty(RegistryObject object, std::string_view name, const Value& value) {
  const auto* entry = entryOf(object);
  if (!entry) return kErrorNoDevice;
  if (object == entry->driver) return entry->instance->setProperty(name, value);
  if (classOf(object) == class_name::kHidSystem) return setDoubleClick(name, value);
  return kErrorUnsupported;
}

Status PublishedInstances::setDoubleClick(std::string_view name, const Value& value) {
  if (const auto status = hidSystem_.setProperty(name, value); status != kSuccess) return status;
  for (const auto& entry : entries_)
    entry.instance->setDoubleClick(hidSystem_.clickTime(), hidSystem_.clickArea());
  if (doubleClickListener_) doubleClickListener_();
  return kSuccess;
}

}  // namespace touchpanel::driver
