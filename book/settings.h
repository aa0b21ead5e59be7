// CDProperty.xml: what the author chose for the whole book.
#pragma once

#include <QString>
#include <QStringView>
#include <array>

#include "book/folder.h"

namespace book {

struct Settings {
  std::array<int, 3> counts = {0, 0, 0};  // collections planned in the rows a, b and c
  int layout = 1;                         // 1 or 2
  bool music = false;
  bool print = false;
};

// A value that is missing or no number leaves what a Settings has from the start.
Settings ParseSettings(QStringView text);
Settings ReadSettings(const Folder& book);

}  // namespace book
