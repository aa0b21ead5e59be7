#include "bench/box_rows.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <stdexcept>

#include "bench/bare_edit.h"
#include "bench/desk.h"
#include "bench/paint_watch.h"
#include "bench/texts.h"
#include "platform/text/encoding.h"

namespace bench {
namespace {

using platform::Position;
using testing_support::Robot;

constexpr std::size_t kMegabyte = 1024 * 1024;

// The desk with one input text opened, and beside it the bare editor with the same text.
class TwoBoxes {
 public:
  TwoBoxes(WorkFolder& work, std::size_t characters) : desk_(work.NewFolder("program")) {
    const std::string input = work.NewFolder("input");
    WriteFile(input + "/text.txt", platform::EncodeMachineCodePage(CleanText(characters)));
    desk_.OpenWorkbench(work.NewFolder("project"), input);
    desk_.OpenText("text.txt");
    edit_ = &Robot::FindAs<QTextEdit>("Form3", "matn");
    bare_ = std::make_unique<BareEdit>(*edit_);
    TakeText(*bare_, edit_->toPlainText());
    Settle();
  }

  // Both have laid out and painted all that they have to.
  void Settle() {
    LayOut(*edit_);
    LayOut(*bare_);
    Robot::Settle();
  }

  workbench::Form3& TheForm3() { return desk_.form3; }
  QTextEdit& Edit() { return *edit_; }
  QTextEdit& Bare() { return *bare_; }

 private:
  Desk desk_;
  QTextEdit* edit_ = nullptr;
  std::unique_ptr<BareEdit> bare_;
};

// What stands in the editor, each paragraph with what makes it look the same.
QString Html(const QTextEdit& edit) {
  QString html;
  for (const QString& paragraph : edit.toPlainText().split(u'\n')) {
    html += QStringLiteral("<p dir=\"rtl\" align=\"right\">") + paragraph.toHtmlEscaped() +
            QStringLiteral("</p>");
  }
  return html;
}

void Select(QTextEdit& edit, int start, int length) {
  QTextCursor cursor = edit.textCursor();
  cursor.setPosition(start);
  cursor.setPosition(start + length, QTextCursor::KeepAnchor);
  edit.setTextCursor(cursor);
}

void RemoveSelection(QTextEdit& edit) {
  QTextCursor cursor = edit.textCursor();
  cursor.removeSelectedText();
  cursor.setPosition(0);
  edit.setTextCursor(cursor);
}

void PressKey(QTextEdit& edit, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&edit, &press);
}

// Files passages in both boxes by turns.
class Marking {
 public:
  explicit Marking(TwoBoxes& boxes)
      : boxes_(boxes), toolWatch_(boxes.Edit()), bareWatch_(boxes.Bare()) {
    boxes.Edit().setFocus();
  }

  void Measure(Measured& measured) {
    StartHeading();
    const std::ptrdiff_t filed = boxes_.TheForm3().entryCount;
    Select(boxes_.Edit(), kStart, kPassage);
    Select(boxes_.Bare(), kStart, kPassage);
    boxes_.Settle();
    measured.tool.push_back(
        toolWatch_.SecondsToPaint([&] { PressKey(boxes_.Edit(), Qt::Key_F3); }));
    measured.beside.push_back(bareWatch_.SecondsToPaint([&] { RemoveSelection(boxes_.Bare()); }));
    if (boxes_.TheForm3().entryCount != filed + 1 ||
        boxes_.Edit().document()->characterCount() != boxes_.Bare().document()->characterCount()) {
      throw std::runtime_error("F3 doesn't do what the bare removal does");
    }
  }

 private:
  static constexpr int kStart = 300;
  static constexpr int kPassage = 2000;
  static constexpr int kHeading = 20;

  // A passage needs a heading; what that takes out of the box goes out of the bare one, too.
  void StartHeading() {
    Select(boxes_.Edit(), 0, kHeading);
    PressKey(boxes_.Edit(), Qt::Key_F2);
    Select(boxes_.Bare(), 0, kHeading);
    RemoveSelection(boxes_.Bare());
    boxes_.Settle();
  }

  TwoBoxes& boxes_;
  PaintWatch toolWatch_;
  PaintWatch bareWatch_;
};

}  // namespace

Row MeasureRichText(const Plan& plan) {
  TwoBoxes boxes(plan.work, kMegabyte);
  const QString html = Html(boxes.Edit());
  platform::RichTextBox& matn = boxes.TheForm3().matn;
  const Position length = matn.TextLength();
  Measured measured;
  for (int round = 0; round <= plan.rounds; ++round) {
    matn.SetSelStart(0);
    matn.SetSelLength(length);
    boxes.Settle();
    const double tool = SecondsOf([&] { matn.SetTextRTF(matn.SelRTF()); });
    boxes.Settle();
    const double bare = SecondsOf([&] { boxes.Bare().setHtml(html); });
    boxes.Settle();
    if (matn.TextLength() != length)
      throw std::runtime_error(
          "the text came back otherwise: " + std::to_string(matn.TextLength()) + " characters of " +
          std::to_string(length));
    if (round == 0) continue;  // both warm
    measured.tool.push_back(tool);
    measured.beside.push_back(bare);
  }
  return TimedRow("writing the RTF of a 1 MB selection and reading it back into the box",
                  "QTextEdit::setHtml with the same text", measured, {Target::Kind::kAtMost, 1.0});
}

Row MeasureMarking(const Plan& plan) {
  TwoBoxes boxes(plan.work, 2 * kMegabyte);
  Marking marking(boxes);
  Measured warm;
  marking.Measure(warm);
  Measured measured;
  for (int round = 0; round < 3 * plan.rounds; ++round) marking.Measure(measured);
  return TimedRow("F3 on 2 KB of a 2 MB text, key press to next paint",
                  "the same removal in a bare QTextEdit", measured, {Target::Kind::kAtMost, 1.3});
}

}  // namespace bench
