// The toolkit's own text editor with nothing around it, as large as the workbench's text box.
#pragma once

#include <QTextEdit>

namespace bench {

// Has the font, the size and the direction of `like`. Shown once it is made.
class BareEdit : public QTextEdit {
 public:
  explicit BareEdit(const QTextEdit& like);
  // Of the workbench's text box as it is designed.
  BareEdit();
};

// Takes in the text, every paragraph aligned to the right.
void TakeText(QTextEdit& edit, const QString& text);
// Lets the box lay out the whole of its text, as it would by and by on its own.
void LayOut(const QTextEdit& edit);

}  // namespace bench
