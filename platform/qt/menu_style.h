// Menus that read from right to left in a program that doesn't.
#pragma once

#include <QMenu>

namespace platform {

void MakeRightToLeft(QMenu& menu);

}  // namespace platform
