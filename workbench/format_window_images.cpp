// Pictures put into an entry's text while it is edited.
#include "core/numbers.h"
#include "workbench/format_window.h"
#include "workbench/inline_images.h"

namespace workbench {

using platform::Position;
using platform::Text;

void Form3::DoIMG() {
  report_.Catching(core::failure::kInsertImage, [&] {
    report_.LogMe(u"Inserting image inside the text...");
    if (imageMark.empty()) return report_.bepayam(core::message::kNoImageMark);
    form1_.RequestFile(u"IMG", core::kPicturePattern, &Paragraph().TheWindow());
    // What an earlier choice left counts still.
    if (chosenImage.empty() || !FileSys().FileExists(chosenImage)) return;
    table.inlineImage.Set(imageCount, chosenImage);
    PlaceImage(Paragraph().Fields().matn);
    ++imageCount;
  });
}

// A paragraph of its own in front of the caret's. A text of one paragraph gets an end first, by
// adding to it: setting the text anew would cost it its formatting.
void Form3::PlaceImage(platform::RichTextBox& box) {
  const Position caret = box.SelStart();
  if (platform::InStr(box.Text(), platform::kCrLf) == 0) {
    box.SetSelStart(box.TextLength());
    box.SetSelText(Text(u" ").append(platform::kCrLf));
  }
  const auto end = EndOfParagraphBefore(box.Text(), caret);
  box.SetSelStart(end.value_or(0));
  if (end) box.SetSelText(platform::kCrLf);
  box.SetSelRTF(imageMark);
  box.SetSelText(u"{" + platform::FromNumber(imageCount) + u"}");
  if (!end) box.SetSelText(platform::kCrLf);
}

}  // namespace workbench
