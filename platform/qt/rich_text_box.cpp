#include "platform/windows/rich_text_box.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QProxyStyle>
#include <QTextBlock>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/qt/conversions.h"
#include "platform/qt/copied_text.h"
#include "platform/qt/fonts.h"
#include "platform/qt/line_wrapping.h"
#include "platform/qt/peers.h"
#include "platform/qt/rich_text_document.h"
#include "platform/qt/rich_text_pictures.h"
#include "platform/qt/trampoline.h"
#include "platform/rtf/rtf.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

constexpr int kFirstFunctionKeyCode = 112;
constexpr int kDesignTextPoints = 10;

// The code of a key as handlers know it: F1 is 112, Enter 13, letters and digits their capital's
// character, 0 for what has none. Characters whose own number is a function key's ("{" is 123) must
// not be taken for it.
int KeyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kFirstFunctionKeyCode + key - Qt::Key_F1;
  const bool alike = (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                     (key >= Qt::Key_A && key <= Qt::Key_Z) || key == Qt::Key_Space;
  if (alike) return key;
  const QString text = event.text();
  const int typed = text.isEmpty() ? 0 : text.front().unicode();
  return typed < 0x20 ? typed : 0;
}

int ShiftOf(const QInputEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  return ((held & Qt::ShiftModifier) ? 1 : 0) + ((held & Qt::ControlModifier) ? 2 : 0) +
         ((held & Qt::AltModifier) ? 4 : 0);
}

// 1 left, 2 right, 4 middle.
int ButtonOf(const QMouseEvent& event) {
  if (event.button() == Qt::RightButton) return 2;
  return event.button() == Qt::MiddleButton ? 4 : 1;
}

// The name under which rich text is offered; empty if there is none.
QString RichTextTypeOf(const QMimeData& source) {
  for (const char* type : {kRichTextType, kOtherRichTextType}) {
    if (source.hasFormat(type)) return type;
  }
  return {};
}

// The document copies the text; another copy of a large one on the way there can be had without.
void InsertPlain(QTextCursor& cursor, TextView text) {
  cursor.insertText(QString::fromRawData(reinterpret_cast<const QChar*>(text.data()),
                                         static_cast<qsizetype>(text.size())));
}

// Formatted text stands on paper, on a dark desktop too: its colours were chosen for it.
QPalette Paper() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

// A selection goes to the edge of the box, so that an empty line shows that it is selected: else
// nobody would see that a passage is blank before it is filed.
class SelectionStyle : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_RichText_FullWidthSelection) return 1;
    return QProxyStyle::styleHint(hint, option, widget, more);
  }
};

// Whatever a page from elsewhere names, nothing is ever loaded for it.
class WebPage : public QTextDocument {
 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

// With the caret at the start: one at the end would make the box scroll there. Outside of an edit a
// cursor that is moved has all lines laid out up to where it goes.
QTextCursor Spanning(QTextDocument* document, int start, int end) {
  QTextCursor cursor(document);
  cursor.beginEditBlock();
  cursor.setPosition(end);
  cursor.setPosition(start, QTextCursor::KeepAnchor);
  cursor.endEditBlock();
  return cursor;
}

class RichTextEdit : public QTextEdit {
 public:
  explicit RichTextEdit(QWidget* parent) : QTextEdit(parent) {
    auto* style = new SelectionStyle;
    style->setParent(this);
    setStyle(style);
    setPalette(Paper());
    setLayoutDirection(Qt::RightToLeft);
    setFont(RichTextFont());
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  }

  std::function<void(int code, int shift)> onKeyDown;
  std::function<void(int button)> onMouseUp;
  std::function<bool()> hasMenuOfItsOwn;

  // The selection as code reads and writes it. One that reaches far into a large text the widget
  // takes over with the next event only: it lays out all lines up to its end, even if the selection
  // is gone again before anybody could see it.
  QTextCursor Selection() const { return selection_.isNull() ? textCursor() : selection_; }
  void SetSelection(const QTextCursor& selection) {
    DropSelection();
    if (selection.selectionEnd() <= kLaidOutAtOnce) return setTextCursor(selection);
    selection_ = selection;
    QTimer::singleShot(0, this, [this] { TakeOverSelection(); });
  }
  void DropSelection() { selection_ = QTextCursor(); }

  // Shows the document, which becomes the box's own, in the place of the one before.
  void Take(std::unique_ptr<QTextDocument> content) {
    QTextDocument* const taken = content.release();
    // Nothing is laid out before the box has said how wide and where its lines are broken; else a
    // large text would be laid out several times.
    taken->setPageSize(QSizeF(0, 0));
    setWordWrapMode(ToolkitWrapping(WrappingOf(*taken)));
    taken->setParent(this);
    RichTextPictures::Show(*taken);
    setDocument(taken);
    connect(taken, &QTextDocument::contentsChange, this, [this](int position, int, int added) {
      FitWrapping(position, added);
      NoteEdit(position, added);
    });
    sameBefore_ = 0;
    sameAfter_ = 0;
  }

  // A document that is being emptied has no end of its own for a while.
  int Length() const { return std::max(0, document()->characterCount() - 1); }

  // What lies between what is the same before and after.
  std::optional<TextEdit> TakeEdit() {
    const int length = Length();
    const int former = std::exchange(knownLength_, length);
    const int shorter = std::min(former, length);
    const int before = std::min(std::exchange(sameBefore_, kAllSame), shorter);
    const int after = std::min(std::exchange(sameAfter_, kAllSame), shorter - before);
    if (before + after == former && former == length) return std::nullopt;
    return TextEdit{before, former - before - after, length - before - after};
  }

 protected:
  // The box asks itself about input methods while code changes it.
  bool event(QEvent* event) override {
    if (event->type() != QEvent::InputMethodQuery) TakeOverSelection();
    return QTextEdit::event(event);
  }

  bool viewportEvent(QEvent* event) override {
    TakeOverSelection();
    return QTextEdit::viewportEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const QPointer<RichTextEdit> alive = this;
    const auto handler = onKeyDown;
    if (handler) handler(KeyCodeOf(*event), ShiftOf(*event));
    if (alive == nullptr) return;
    TakeOverSelection();
    QTextEdit::keyPressEvent(event);
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    QTextEdit::mouseReleaseEvent(event);
    const auto handler = onMouseUp;
    if (handler) handler(ButtonOf(*event));
  }

  // A menu of the toolkit would come before the release and keep it to itself. The key for menus
  // counts as the button.
  void contextMenuEvent(QContextMenuEvent* event) override {
    if (!hasMenuOfItsOwn || !hasMenuOfItsOwn()) return QTextEdit::contextMenuEvent(event);
    constexpr int kRightButton = 2;
    const auto handler = onMouseUp;
    if (event->reason() == QContextMenuEvent::Keyboard) handler(kRightButton);
  }

  // The document brings its pictures along.
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }

  QMimeData* createMimeDataFromSelection() const override {
    return new CopiedText(SelectedDocument(textCursor()));
  }

  bool canInsertFromMimeData(const QMimeData* source) const override {
    return !RichTextTypeOf(*source).isEmpty() || QTextEdit::canInsertFromMimeData(source);
  }

  // Rich text from elsewhere comes in through the tool's own model, so that the box never holds
  // what can't be filed: tables, lists and frames are paragraphs here.
  void insertFromMimeData(const QMimeData* source) override {
    QTextCursor cursor = textCursor();
    if (const QString type = RichTextTypeOf(*source); !type.isEmpty()) {
      const std::string bytes = source->data(type).toStdString();
      bool inserted = false;
      Ignoring([&] {
        InsertDocument(cursor, rtf::Read(bytes));
        inserted = true;
      });
      if (inserted) return setTextCursor(cursor);
    }
    if (source->hasHtml()) {
      WebPage pasted;
      pasted.setHtml(source->html());
      QTextCursor all(&pasted);
      all.select(QTextCursor::Document);
      InsertDocument(cursor, SelectedDocument(all));
      return setTextCursor(cursor);
    }
    if (source->hasText()) InsertPlain(cursor, ToText(source->text()));
    setTextCursor(cursor);
  }

 private:
  static constexpr int kLaidOutAtOnce = 100'000;  // characters: some hundredths of a second

  static constexpr int kAllSame = std::numeric_limits<int>::max();

  // The toolkit sometimes counts the document's own end as added.
  void NoteEdit(int position, int added) {
    sameBefore_ = std::min(sameBefore_, position);
    sameAfter_ = std::min(sameAfter_, std::max(0, Length() - position - added));
  }

  void TakeOverSelection() {
    if (!selection_.isNull()) setTextCursor(std::exchange(selection_, {}));
  }

  // Comes before the toolkit lays out what has changed. That an endless word is gone the whole text
  // tells only.
  void FitWrapping(int position, int added) {
    const bool anywhere = wordWrapMode() == QTextOption::WrapAnywhere;
    setWordWrapMode(ToolkitWrapping(
        anywhere ? WrappingOf(*document()) : WrappingOf(*document(), position, position + added)));
  }

  QTextCursor selection_;
  // Since the last TakeEdit.
  int sameBefore_ = kAllSame;
  int sameAfter_ = kAllSame;
  int knownLength_ = 0;
};

RichTextEdit& EditOf(const Control& control) {
  return static_cast<RichTextEdit&>(*control.ThePeer().widget);
}

QTextCursor WholeDocument(QTextDocument* document) {
  return Spanning(document, 0, document->characterCount() - 1);
}

// Changes the box's content as a whole; what was there before can't be called back by undo. `fill`
// gets a document that nobody shows yet, for of a document that changes as a whole the box lays out
// all at once, which takes seconds for a large text, and of a new one only what it shows.
void Replace(RichTextEdit& edit, const std::function<void(QTextCursor&)>& fill) {
  edit.DropSelection();
  const QPointer<QTextDocument> before = edit.document();
  before->clear();  // two large texts at once need twice the memory
  auto content = std::make_unique<QTextDocument>();
  content->setDefaultFont(edit.font());
  content->setUndoRedoEnabled(false);
  QTextCursor cursor(content.get());
  fill(cursor);
  content->setUndoRedoEnabled(true);
  edit.Take(std::move(content));
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
  QTextCharFormat letters;
  letters.setFontPointSize(kDesignTextPoints);
  Replace(edit, [&](QTextCursor& cursor) {
    cursor.setBlockFormat(paragraph);
    cursor.insertText(ToQString(ShownCaption(row.text)), letters);
  });
}

int Bounded(Position value, Position highest) {
  if (value < 0) throw Failure(u"Invalid property value");
  return static_cast<int>(std::min(value, highest));
}

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
  edit->hasMenuOfItsOwn = [alive, control] {
    return alive != nullptr && static_cast<bool>(control->onMouseUp);
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
  QTextBlockFormat format = edit.document()->firstBlock().blockFormat();
  // Without this a left-to-right paragraph from elsewhere would turn all texts to come.
  format.setLayoutDirection(Qt::RightToLeft);
  Replace(edit, [&](QTextCursor& cursor) {
    cursor.setBlockFormat(format);
    InsertPlain(cursor, text);
  });
}

Position RichTextBox::TextLength() const { return EditOf(*this).Length(); }

std::optional<TextEdit> RichTextBox::TakeEdit() { return EditOf(*this).TakeEdit(); }

Text RichTextBox::EditedText(Position start, Position count) const {
  QTextDocument* const document = EditOf(*this).document();
  const Position length = TextLength();
  const Position from = std::clamp<Position>(start, 0, length);
  const Position to = from + std::clamp<Position>(count, 0, length - from);
  const QTextCursor part = Spanning(document, static_cast<int>(from), static_cast<int>(to));
  return EditedTextOf(part.selectedText());
}

Text RichTextBox::TextRTF() const {
  return rtf::WriteText(SelectedDocument(WholeDocument(EditOf(*this).document())));
}

void RichTextBox::SetTextRTF(TextView rtf) { Load(EditOf(*this), rtf::Read(rtf)); }

void RichTextBox::LoadFile(TextView path) {
  const auto file = HostFileSystem().Open(path, OpenMode::kRead, false);
  const std::string bytes = file->ReadAll();
  file->Close();
  Load(EditOf(*this), rtf::Read(bytes));
}

void RichTextBox::SetLocked(bool locked) {
  RichTextEdit& edit = EditOf(*this);
  edit.setReadOnly(locked);
  // Read with the keys too.
  if (locked)
    edit.setTextInteractionFlags(edit.textInteractionFlags() | Qt::TextSelectableByKeyboard);
}

Text RichTextBox::SelText() const { return PlainTextOf(EditOf(*this).Selection().selectedText()); }

void RichTextBox::SetSelText(TextView text) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.Selection();
  if (text.empty()) {
    cursor.removeSelectedText();
  } else {
    InsertPlain(cursor, text);
  }
  edit.SetSelection(cursor);
}

Text RichTextBox::SelRTF() const {
  return rtf::WriteText(SelectedDocument(EditOf(*this).Selection()));
}

void RichTextBox::SetSelRTF(TextView rtf) {
  const rtf::Document document = rtf::Read(rtf);
  RichTextEdit& edit = EditOf(*this);
  QTextCursor cursor = edit.Selection();
  InsertDocument(cursor, document);
  edit.SetSelection(cursor);
}

Position RichTextBox::SelStart() const { return EditOf(*this).Selection().selectionStart(); }

Position RichTextBox::SelLength() const {
  const QTextCursor cursor = EditOf(*this).Selection();
  return cursor.selectionEnd() - cursor.selectionStart();
}

void RichTextBox::SetSelStart(Position start) {
  RichTextEdit& edit = EditOf(*this);
  const int position = Bounded(start, TextLength());
  edit.SetSelection(Spanning(edit.document(), position, position));
}

void RichTextBox::SetSelLength(Position length) {
  RichTextEdit& edit = EditOf(*this);
  const int start = edit.Selection().selectionStart();
  const int end = start + Bounded(length, TextLength() - start);
  edit.SetSelection(Spanning(edit.document(), start, end));
}

void RichTextBox::SetSelAlignment(SelectionAlignment alignment) {
  RichTextEdit& edit = EditOf(*this);
  QTextCursor selection = edit.Selection();
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
