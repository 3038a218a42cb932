#include "app/DiagnosticsReport.h"

#include <cctype>
#include <cstdio>

#include "app/CellText.h"
#include "contract/DriverProperties.h"

namespace touchpanel {
namespace {

constexpr const char* kReportedKeys[] = {
    entry_key::kSN,        entry_key::kFirmwareVersion, entry_key::kCalibrateStatus, entry_key::kMonitorID,
    entry_key::kVendorID,  entry_key::kProductID,       entry_key::kLocationID,      entry_key::kHandle,
    entry_key::kHiddevice, entry_key::kDoubleClickTime, entry_key::kDoubleClickArea};

constexpr const char* kDriverDictionaries[] = {property::kCalibration, property::kConfigration};

void addHeading(std::string& report, std::string_view heading) {
  if (!report.empty()) report += '\n';
  report.append(heading).append(":\n");
}

void addValue(std::string& report, std::string_view name, std::string_view text) {
  report.append("  ").append(name).append(": ").append(text).append("\n");
}

/// One line for each value that reads as text; of the others, their size.
void addValues(std::string& report, std::string_view dictionaryName, const Dictionary& dictionary) {
  for (const auto& [key, value] : dictionary) {
    const auto name = std::string(dictionaryName) + '.' + key;
    const auto* bytes = value.get<Bytes>();
    addValue(report, name, bytes ? std::to_string(bytes->size()) + " bytes" : cellText(key, value));
  }
}

void addDriverState(std::string& report, const Dictionary& entry, Registry& registry) {
  const auto published = registry.properties(registryObjectOf(entry, entry_key::kHandle));
  addValue(report, "driver instance", published ? "present" : "gone");
  if (!published) return;
  for (const auto* name : kDriverDictionaries)
    if (const auto* dictionary = published->dictionary(name)) addValues(report, name, *dictionary);
}

void addDevice(std::string& report, const Dictionary& entry, Registry& registry) {
  for (const auto* key : kReportedKeys) {
    const auto* value = entry.find(key);
    addValue(report, key, value ? cellText(key, *value) : "absent");
  }
  for (const auto& setting : kSettingsInFile)
    if (const auto* value = entry.find(setting.key))
      addValue(report, setting.key, cellText(setting.key, *value));
  addDriverState(report, entry, registry);
}

bool isWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// Replaces `word` where it stands by itself: a user called "touch" must not tear "touchscreen" apart.
std::string withoutWord(const std::string& text, const std::string& word, std::string_view replacement) {
  if (word.empty()) return text;
  std::string cleaned;
  std::size_t done = 0;
  for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    if (at < done) continue;
    const auto end = at + word.size();
    const bool startsWord = at == 0 || !isWordCharacter(text[at - 1]) || !isWordCharacter(word.front());
    const bool endsWord = end == text.size() || !isWordCharacter(text[end]) || !isWordCharacter(word.back());
    if (!startsWord || !endsWord) continue;
    cleaned.append(text, done, at - done).append(replacement);
    done = end;
  }
  return cleaned.append(text, done);
}

/// The home path goes first, since it usually holds the user's name.
std::string withoutPrivateWords(const std::string& text, const PrivateWords& words) {
  const auto homeless = withoutWord(text, words.homePath == "/" ? "" : words.homePath, "~");
  return withoutWord(withoutWord(homeless, words.userName, "<user>"), words.hostName, "<host>");
}

}  // namespace

std::string diagnosticsReport(const DiagnosticsSources& sources) {
  std::string report;
  addHeading(report, "Versions");
  for (const auto& [name, version] : sources.versions) addValue(report, name, version);

  addHeading(report, "Touchscreens");
  addValue(report, "listed", std::to_string(sources.devices.size()));
  addValue(report, "driver instances",
           std::to_string(sources.registry.instancesOf(class_name::kTouchDriver).size()));
  for (const auto& entry : sources.devices) {
    addHeading(report, "Touchscreen");
    addDevice(report, *entry, sources.registry);
  }

  addHeading(report, "Last diagnostic lines");
  for (const auto& line : sources.lines) report.append("  ").append(line).append("\n");
  return withoutPrivateWords(report, sources.privateWords);
}

}  // namespace touchpanel
