// The toolkit's own words: its menus over fields and scroll bars, its buttons, what it tells a
// screen reader.
#pragma once

#include <QApplication>
#include <QString>
#include <string_view>

namespace platform {

// From here on they are Persian, whatever translations the host has, and its menus read from right
// to left. Names of keys stay as they are.
void MakeToolkitSpeakPersian(QApplication& application);

// One of the toolkit's own words, "Yes", as the screen shows it. Empty for a word that isn't one.
QString PersianOf(std::string_view source);

}  // namespace platform
