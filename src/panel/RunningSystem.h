#pragma once

#include <QString>
#include <string>
#include <vector>

#include "app/DiagnosticsReport.h"
#include "platform/LibraryInUse.h"

namespace touchpanel {

/// Qt, with the version that runs and not the one that was compiled against.
LibraryInUse qtInUse();

/// One line for each library: name, version if known, licence.
QString librariesText(const std::vector<LibraryInUse>& libraries);

/// The program, `libraries` and the operating system.
std::vector<NamedVersion> runningVersions(const std::vector<LibraryInUse>& libraries);

/// The names of user, home and machine, which a report leaves out.
PrivateWords privateWords();

}  // namespace touchpanel
