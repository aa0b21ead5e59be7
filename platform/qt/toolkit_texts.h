// The toolkit's own words: its menus over fields and scroll bars, its buttons, what it tells a
// screen reader.
#pragma once

#include <QApplication>

namespace platform {

// From here on they are Persian, whatever translations the host has, and its menus read from right
// to left. Names of keys stay as they are.
void MakeToolkitSpeakPersian(QApplication& application);

}  // namespace platform
