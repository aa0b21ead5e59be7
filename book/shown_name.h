// Names and titles out of a book, as they can be shown.
#pragma once

#include <QString>

namespace book {

// With a sign in place of each line end, of each other control and of each half of a character that
// lacks its other half; as long as before.
QString WithSigns(const QString& text);

// The same for the name of a file, and with a sign for each character that forms others and isn't
// seen itself: one that turns the text around lets "fdp.exe" read as "exe.pdf". What Persian needs
// between two letters of a word stays.
QString NameWithSigns(const QString& name);

}  // namespace book
