// The toolkit's text documents against the tool's own model of rich text.
#pragma once

#include <QTextCursor>

#include "platform/rtf/document.h"
#include "platform/text/text.h"

namespace platform {

// Left and right are the screen's, whatever the paragraph's direction.
Qt::Alignment ToolkitAlignment(rtf::Alignment alignment);

// What the cursor has selected. Pictures come as the bytes they were put in with.
rtf::Document SelectedDocument(const QTextCursor& cursor);

// Puts the document in the place of the cursor's selection, as one step of undo. The first
// paragraph joins the one of the cursor and gives it its alignment where that one was empty; the
// cursor ends after what was put in.
void InsertDocument(QTextCursor& cursor, const rtf::Document& document);

// The document's own characters as plain text: a paragraph end or a line break is CR LF, a picture
// one blank, a non-breaking space stays one.
Text PlainTextOf(const QString& raw);
// The same with one character for each, "\n" for an end.
Text EditedTextOf(const QString& raw);

}  // namespace platform
