// What the pages of the window share.
#pragma once

#include <functional>

#include "viewer/book/folder.h"
#include "viewer/book/settings.h"
#include "viewer/look.h"
#include "viewer/outside.h"
#include "viewer/pictures.h"

namespace viewer {

struct Surroundings {
  const BookFolder& book;
  const Settings& settings;
  const Look& look;
  Pictures& pictures;
  const Outside& outside;
  std::function<void(bool)> hushMusic;  // while the book itself sounds
};

// A notice with one button, and a question that is answered with yes or no; right to left.
void Tell(QWidget* parent, const QString& text);
[[nodiscard]] bool Ask(QWidget* parent, const QString& text);

}  // namespace viewer
