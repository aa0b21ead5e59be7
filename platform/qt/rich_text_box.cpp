#include "platform/rich_text_box.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>

#include "platform/caption.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/qt/conversions.h"
#include "platform/qt/fonts.h"
#include "platform/qt/peers.h"
#include "platform/qt/rich_text_document.h"
#include "platform/qt/trampoline.h"
#include "platform/rtf/rtf.h"

namespace platform {
namespace {

constexpr int kFirstFunctionKeyCode = 112;

// The code of a key as handlers know it: F1 is 112, Enter 13, letters and digits their capital's
// character.
int KeyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kFirstFunctionKeyCode + key - Qt::Key_F1;
  if (key < 0x100) return key;
  const QString text = event.text();
  return text.isEmpty() ? 0 : text.front().unicode();
}

int ShiftOf(const QInputEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  return ((held & Qt::ShiftModifier) ? 1 : 0) + ((held & Qt::ControlModifier) ? 2 : 0) +
         ((held & Qt::AltModifier) ? 4 : 0);
}

class RichTextEdit : public QTextEdit {
 public:
  explicit RichTextEdit(QWidget* parent) : QTextEdit(parent) {
    setLayoutDirection(Qt::RightToLeft);
    setFont(RichTextFont());
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  }

  std::function<void(int code, int shift)> onKeyDown;
  std::function<void(int button)> onMouseUp;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QPointer<RichTextEdit> alive = this;
    const auto handler = onKeyDown;
    if (handler) handler(KeyCodeOf(*event), ShiftOf(*event));
    if (alive != nullptr) QTextEdit::keyPressEvent(event);
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    QTextEdit::mouseReleaseEvent(event);
    const auto handler = onMouseUp;
    if (handler) handler(event->button() == Qt::RightButton ? 2 : 1);
  }

  // Rich text from elsewhere comes in through the tool's own model, so that the box never holds
  // what can't be filed: tables, lists and frames are paragraphs here.
  void insertFromMimeData(const QMimeData* source) override {
    QTextCursor cursor = textCursor();
    if (source->hasFormat(QStringLiteral("text/rtf"))) {
      const std::string bytes = source->data(QStringLiteral("text/rtf")).toStdString();
      bool inserted = false;
      Ignoring([&] {
        InsertDocument(cursor, rtf::Read(bytes));
        inserted = true;
      });
      if (inserted) return setTextCursor(cursor);
    }
    if (source->hasHtml()) {
      QTextDocument pasted;
      pasted.setHtml(source->html());
      QTextCursor all(&pasted);
      all.select(QTextCursor::Document);
      InsertDocument(cursor, SelectedDocument(all));
      return setTextCursor(cursor);
    }
    if (source->hasText()) cursor.insertText(source->text());
    setTextCursor(cursor);
  }
};

RichTextEdit& EditOf(const Control& control) {
  return static_cast<RichTextEdit&>(*control.ThePeer().widget);
}

QTextCursor WholeDocument(QTextDocument* document) {
  QTextCursor cursor(document);
  cursor.select(QTextCursor::Document);
  return cursor;
}

// Changes the box's content as a whole. A document that the box shows is laid out anew at each
// change of many paragraphs, which takes seconds for a large one; so `fill` gets one that nobody
// shows yet. What was there before can't be called back by undo.
void Replace(RichTextEdit& edit, const std::function<void(QTextCursor&)>& fill) {
  auto content = std::make_unique<QTextDocument>();
  content->setDefaultFont(edit.font());
  content->setUndoRedoEnabled(false);
  QTextCursor cursor(content.get());
  fill(cursor);
  content->setUndoRedoEnabled(true);
  const QPointer<QTextDocument> before = edit.document();
  content->setParent(&edit);
  edit.setDocument(content.release());
  // The box itself deletes only the document that it was made with.
  delete before;
}

void Load(RichTextEdit& edit, const rtf::Document& document) {
  Replace(edit, [&](QTextCursor& cursor) { InsertDocument(cursor, document); });
}

rtf::Alignment ModelAlignment(SelectionAlignment alignment) {
  switch (alignment) {
    case SelectionAlignment::kLeft:
      return rtf::Alignment::kLeft;
    case SelectionAlignment::kRight:
      return rtf::Alignment::kRight;
    case SelectionAlignment::kCentre:
      return rtf::Alignment::kCentre;
  }
  return rtf::Alignment::kLeft;
}

bool AllAligned(const QTextCursor& selection, Qt::Alignment alignment) {
  QTextBlock block = selection.document()->findBlock(selection.selectionStart());
  for (; block.isValid() && block.position() <= selection.selectionEnd(); block = block.next()) {
    if (block.blockFormat().alignment() != alignment) return false;
  }
  return true;
}

bool IsWhole(const QTextCursor& selection) {
  return selection.selectionStart() == 0 &&
         selection.selectionEnd() == selection.document()->characterCount() - 1;
}

// A design text is a caption of many lines: it is there to be read, not to be filed.
void ShowDesignText(RichTextEdit& edit, const ControlRow& row) {
  QTextBlockFormat paragraph;
  paragraph.setAlignment(ToolkitAlignment(rtf::Alignment::kRight));
  paragraph.setLayoutDirection(Qt::RightToLeft);
  Replace(edit, [&](QTextCursor& cursor) {
    cursor.setBlockFormat(paragraph);
    cursor.insertText(ToQString(ShownCaption(row.text)));
  });
}

int Bounded(Position value, Position highest) {
  if (value < 0) throw Failure(u"Invalid property value");
  return static_cast<int>(std::min(value, highest));
}

Text Widened(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

}  // namespace

std::unique_ptr<Control::Peer> MakeRichTextBox(const ControlRow& row, QWidget* parent,
                                               RichTextBox* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* edit = new RichTextEdit(parent);
  peer->widget = edit;
  ShowDesignText(*edit, row);
  if (control == nullptr) return peer;
  const QPointer<QObject> alive = &peer->anchor;
  edit->onKeyDown = [alive, control](int code, int shift) {
    if (alive == nullptr || !control->onKeyDown) return;
    FromEvent([=] { control->onKeyDown(code, shift); });
  };
  edit->onMouseUp = [alive, control](int button) {
    if (alive == nullptr || !control->onMouseUp) return;
    FromEvent([=] { control->onMouseUp(button); });
  };
  return peer;
}

Text RichTextBox::Text() const { return PlainTextOf(EditOf(*this).document()->toRawText()); }

void RichTextBox::SetText(TextView text) {
  RichTextEdit& edit = EditOf(*this);
  const QTextBlockFormat format = edit.document()->firstBlock().blockFormat();
  Replace(edit, [&](QTextCursor& cursor) {
    cursor.setBlockFormat(format);
    cursor.insertText(ToQString(text));
  });
}

Position RichTextBox::TextLength() const { return EditOf(*this).document()->characterCount() - 1; }

Text RichTextBox::TextRTF() const {
  return Widened(rtf::Write(SelectedDocument(WholeDocument(EditOf(*this).document()))));
}

void RichTextBox::SetTextRTF(TextView rtf) { Load(EditOf(*this), rtf::Read(rtf)); }

void RichTextBox::LoadFile(TextView path) {
  const auto file = HostFileSystem().Open(path, OpenMode::kRead, false);
  const std::string bytes = file->ReadAll();
  file->Close();
  Load(EditOf(*this), rtf::Read(bytes));
}

Text RichTextBox::SelText() const { return PlainTextOf(EditOf(*this).textCursor().selectedText()); }

void RichTextBox::SetSelText(TextView text) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.textCursor();
  if (text.empty()) {
    cursor.removeSelectedText();
  } else {
    cursor.insertText(ToQString(text));
  }
  edit.setTextCursor(cursor);
}

Text RichTextBox::SelRTF() const {
  return Widened(rtf::Write(SelectedDocument(EditOf(*this).textCursor())));
}

void RichTextBox::SetSelRTF(TextView rtf) {
  const rtf::Document document = rtf::Read(rtf);
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.textCursor();
  InsertDocument(cursor, document);
  edit.setTextCursor(cursor);
}

Position RichTextBox::SelStart() const { return EditOf(*this).textCursor().selectionStart(); }

Position RichTextBox::SelLength() const {
  const QTextCursor cursor = EditOf(*this).textCursor();
  return cursor.selectionEnd() - cursor.selectionStart();
}

void RichTextBox::SetSelStart(Position start) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.textCursor();
  cursor.setPosition(Bounded(start, TextLength()));
  edit.setTextCursor(cursor);
}

void RichTextBox::SetSelLength(Position length) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.textCursor();
  const int start = cursor.selectionStart();
  // The caret at the start: one at the end would make the box lay out all that lies between.
  cursor.setPosition(start + Bounded(length, TextLength() - start));
  cursor.setPosition(start, QTextCursor::KeepAnchor);
  edit.setTextCursor(cursor);
}

void RichTextBox::SetSelAlignment(SelectionAlignment alignment) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor selection = edit.textCursor();
  QTextBlockFormat format;
  format.setAlignment(ToolkitAlignment(ModelAlignment(alignment)));
  if (AllAligned(selection, format.alignment())) return;
  if (!IsWhole(selection)) {
    selection.mergeBlockFormat(format);
    return;
  }
  rtf::Document document = SelectedDocument(selection);
  for (rtf::Paragraph& paragraph : document.paragraphs) {
    paragraph.alignment = ModelAlignment(alignment);
  }
  Load(edit, document);
  SetSelLength(TextLength());
}

}  // namespace platform
