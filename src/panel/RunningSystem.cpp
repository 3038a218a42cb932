#include "panel/RunningSystem.h"

#include <QDir>
#include <QStringList>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

#include "app/VersionLabel.h"
#include "platform_build/BuildConstants.h"

namespace touchpanel {
namespace {

std::string userName() {
  const auto* user = getpwuid(geteuid());
  return user == nullptr ? qEnvironmentVariable("USER").toStdString() : user->pw_name;
}

}  // namespace

LibraryInUse qtInUse() { return {.name = "Qt", .licence = "GNU LGPL 3", .version = qVersion()}; }

QString librariesText(const std::vector<LibraryInUse>& libraries) {
  QStringList lines;
  for (const auto& [name, licence, version] : libraries) {
    auto line = name;
    if (!version.empty()) line.append(" ").append(version);
    lines += QString::fromStdString(line.append(": ").append(licence));
  }
  return lines.join(u'\n');
}

std::vector<NamedVersion> runningVersions(const std::vector<LibraryInUse>& libraries) {
  std::vector<NamedVersion> versions = {{"Touch Panel", kBuildVersion}, {"Driver label", kDriverVersion}};
  for (const auto& library : libraries)
    if (!library.version.empty()) versions.push_back({library.name, library.version});
  versions.push_back({"System", QSysInfo::prettyProductName().toStdString()});
  versions.push_back({"Kernel", QSysInfo::kernelVersion().toStdString()});
  return versions;
}

PrivateWords privateWords() {
  return {.homePath = QDir::homePath().toStdString(),
          .userName = userName(),
          .hostName = QSysInfo::machineHostName().toStdString()};
}

}  // namespace touchpanel
