// The toolkit's own words: its menus, its buttons, its dialogs for printing and choosing a folder.
#pragma once

#include <QCoreApplication>

namespace viewer {

// From here on they are Persian, and the same on every host, whatever translations it has.
void MakeToolkitSpeakPersian(QCoreApplication& application);

}  // namespace viewer
