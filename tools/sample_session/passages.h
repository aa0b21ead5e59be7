// How an editor reads a sample text: where its headings stand and what belongs to each.
#pragma once

#include <QString>
#include <vector>

namespace sample {

struct Passage {
  QString heading;
  QString text;  // paragraphs joined by "\n", without the empty ones at both ends
};

struct Reading {
  QString title;
  QString subtitle;               // empty where there is none
  std::vector<Passage> passages;  // the identity passage is the one headed by the identity word
};

// `text` with one "\n" after each paragraph, as it stands in the box.
Reading ReadText(const QString& text);

}  // namespace sample
