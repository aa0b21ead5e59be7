// What the pages of the window share.
#pragma once

#include <functional>

#include "book/folder.h"
#include "book/settings.h"
#include "viewer/look.h"
#include "viewer/outside.h"
#include "viewer/pictures.h"

namespace viewer {

struct Surroundings {
  const book::Folder& book;
  const book::Settings& settings;
  const Look& look;
  Pictures& pictures;
  const Outside& outside;
  std::function<void(bool)> hushMusic;  // while the book itself sounds
};

// A notice with one button, and a question that is answered with yes or no; right to left.
void Tell(QWidget* parent, const QString& text);
[[nodiscard]] bool Ask(QWidget* parent, const QString& text);

}  // namespace viewer
