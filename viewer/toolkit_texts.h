// The toolkit's own words: its menus, its buttons, its dialogs for printing and choosing a folder.
#pragma once

#include <QCoreApplication>

namespace viewer {

// From here on they are Persian. What this doesn't know comes from the translations of the host,
// where they are installed.
void MakeToolkitSpeakPersian(QCoreApplication& application);

}  // namespace viewer
