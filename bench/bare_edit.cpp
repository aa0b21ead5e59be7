#include "bench/bare_edit.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QTextCursor>

#include "platform/qt/fonts.h"

namespace bench {
namespace {

constexpr QSize kDesignedSize(820, 393);

}  // namespace

BareEdit::BareEdit(const QTextEdit& like) {
  setLayoutDirection(like.layoutDirection());
  setFont(like.font());
  setVerticalScrollBarPolicy(like.verticalScrollBarPolicy());
  resize(like.size());
  show();
}

BareEdit::BareEdit() {
  setLayoutDirection(Qt::RightToLeft);
  setFont(platform::RichTextFont());
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  resize(kDesignedSize);
  show();
}

void TakeText(QTextEdit& edit, const QString& text) {
  edit.setPlainText(text);
  QTextCursor all(edit.document());
  all.select(QTextCursor::Document);
  QTextBlockFormat format;
  format.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
  all.mergeBlockFormat(format);
}

void LayOut(const QTextEdit& edit) {
  QCoreApplication::processEvents();
  edit.document()->documentLayout()->documentSize();
  QCoreApplication::processEvents();
}

}  // namespace bench
