// Text intake: an input file into the text box, its paragraphs rebuilt, and the small text
// operations with their numbers.
#include "core/numbers.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "workbench/clean_up.h"
#include "workbench/format_window.h"
#include "workbench/paragraphs.h"

namespace workbench {

using platform::Ignoring;
using platform::Text;
using platform::TextView;

void Form3::books_Click() {
  report_.Catching(core::failure::kOpenText, [&] {
    report_.LogMe(u"Opening a text file...");
    currentBook = books.List(books.ListIndex());
    // A line of its own, so that the raw text is gone before the box takes the clean one.
    const Text clean = Rep(ReadWhole(DoSlash(form1_.Text1.Text()) + currentBook));
    matn.SetText(clean);
    Mright();
    TextWasRead();
  });
}

void Form3::Mright() { AlignRight(matn); }

void Form3::AlignRight(platform::RichTextBox& box) {
  box.SetSelStart(0);
  box.SetSelLength(box.TextLength());
  box.SetSelAlignment(platform::SelectionAlignment::kRight);
  box.SetSelLength(0);
}

Text Form3::DelCrLf(TextView text) {
  Text result;
  report_.Catching(core::failure::kDropLineEnds, [&] { result = workbench::DelCrLf(text); });
  return result;
}

Text Form3::BeBor(TextView text, std::int16_t n) {
  Text result;
  report_.Catching(core::failure::kShorten, [&] { result = workbench::BeBor(text, n); });
  return result;
}

Text Form3::DoSlash(TextView path) {
  if (path.empty()) throw platform::Failure(u"Invalid procedure call: an empty path");
  return platform::DoSlash(path, 1);
}

void Form3::chnd_GotFocus() { chnd.SelectAll(); }

void Form3::chnd_LostFocus() {
  bool fits = false;
  Ignoring([&] { fits = WordCountFits(chnd.Text()); });
  if (!fits) {
    Ignoring([&] { chnd.SetText(u"22"); });
    Ignoring([&] { chnd_GotFocus(); });
  }
  Ignoring([&] { wordLimit = platform::ToInt16(chnd.Text()); });
}

void Form3::HazC_Click(std::int16_t) { DoPara(); }

void Form3::DoPara() {
  report_.Catching(core::failure::kRebuildParagraphs, [&] {
    report_.LogMe(u"Cutting end of paragraphs...");
    const ParagraphRules rules{.removeBreaks = HazP.Value(),
                               .breakAtMarks = Noghte.Value(),
                               .wordLimit = platform::ToInt16(chnd.Text())};
    // A line of its own, so that the former text is gone before the box takes the new one.
    const Text rebuilt = RebuildParagraphs(matn.Text(), rules);
    matn.SetText(rebuilt);
    Mright();
  });
}

}  // namespace workbench
