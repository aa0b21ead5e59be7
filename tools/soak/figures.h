// What the soak measures, and what it makes of it.
#pragma once

#include <string>
#include <vector>

namespace soak {

struct Figure {
  std::string step;     // "collection 7", "Form6, 200 times"
  double seconds = 0;   // of this step alone
  long residentKb = 0;  // VmRSS at its end
  long highestKb = 0;   // VmHWM so far
};

// Of this process, now.
Figure FigureOf(std::string step, double seconds);

std::string LineOf(const Figure& figure);

// Empty where memory and times stay as they were once the windows are warm, else what grew. The
// first step that counts is `warm`; steps of one kind are of one size.
std::string WhatGrew(const std::vector<Figure>& figures, std::size_t warm);

}  // namespace soak
