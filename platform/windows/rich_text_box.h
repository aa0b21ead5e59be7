// The box that holds formatted text of many paragraphs.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>

#include "platform/text/text.h"
#include "platform/text/text_edit.h"
#include "platform/windows/controls.h"

namespace platform {

enum class SelectionAlignment : std::uint8_t { kLeft = 0, kRight = 1, kCentre = 2 };

// In SelStart and SelLength (counted from 0) a paragraph end counts one; in Text and SelText it is
// the pair CR LF. A picture is one character, one blank in Text. Rich encodings are RTF 1.9.1.
class RichTextBox : public Control {
 public:
  using Control::Control;

  platform::Text Text() const;
  // Plain, in the box's own font, every paragraph aligned as the first one was; the caret goes to
  // 0.
  void SetText(TextView text);
  // How many characters Text has, paragraph ends counted as in SelStart; no text is made.
  Position TextLength() const;
  // What of the text has changed since the last call, or since the window was loaded; nothing if
  // nothing has. Formatting that changes counts as text that does. Costs what has changed.
  [[nodiscard]] std::optional<TextEdit> TakeEdit();
  // The text as edits count it, with "\n" at a paragraph's end: what there is of so many characters
  // from `start` on.
  platform::Text EditedText(Position start = 0, Position count = kToEnd) const;
  static constexpr Position kToEnd = std::numeric_limits<Position>::max();
  platform::Text TextRTF() const;
  void SetTextRTF(TextView rtf);  // Failure for what is no rich text
  void LoadFile(TextView path);   // rich text from a file; Failure if it can't be read

  // The user can't change a locked text; code can.
  void SetLocked(bool locked);

  platform::Text SelText() const;
  void SetSelText(TextView text);  // takes the place of the selection
  platform::Text SelRTF() const;
  void SetSelRTF(TextView rtf);  // takes the place of the selection; Failure for no rich text
  Position SelStart() const;
  Position SelLength() const;
  void SetSelStart(Position start);  // the caret goes there, nothing stays selected
  void SetSelLength(Position length);
  void SetSelAlignment(SelectionAlignment alignment);

  // The key's code (F1 is 112, F12 is 123). The key goes on to the box as usual.
  std::function<void(int keyCode, int shift)> onKeyDown;
  // 1 left, 2 right, 4 middle. A box with this handler shows no menu of the toolkit's.
  std::function<void(int button)> onMouseUp;
};

}  // namespace platform
