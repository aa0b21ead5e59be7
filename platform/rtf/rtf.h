// RTF (Rich Text Format 1.9.1) to the document model and to plain text, and back.
#pragma once

#include <string>
#include <string_view>

#include "platform/rtf/document.h"
#include "platform/text/text.h"

namespace platform::rtf {

// Reads whatever a word processor writes. Broken input gives what could be read; Failure only for
// input that doesn't begin with "{\rtf" (blanks and line breaks before it are allowed). Time is
// linear in the input, memory too, however deep groups nest and whatever sizes the input claims.
// A last \par ends the last paragraph and opens no other one.
//
// The body is all that is read: headers, footers, foot- and endnotes, comments and deleted text are
// left out. Hidden text is text, as it is to word processors: nobody would find it again. What a
// writer puts down for readers that don't know its feature is taken as text: a list's labels, a
// field's and an object's result; of a symbol field without one, its character. The text of a box
// in the page stands where the box is anchored. A paragraph that names no alignment is a left one,
// and one that names no direction runs from left to right.
Document Read(std::string_view rtf);
Document Read(TextView rtf);  // units up to 0xFF are bytes, others stand for themselves

// The plain text alone, straight from the reader: a paragraph end (and a line break) is CR LF, a
// table's cell end a tab and its row end a paragraph end, a picture one blank; the last paragraph
// has no CR LF after it.
Text PlainText(std::string_view rtf);
Text PlainText(TextView rtf);

// 7-bit RTF, the same bytes for the same document, with \rtlpar or \ltrpar on every paragraph.
// Read(Write(x)) == x for every x that keeps the model's rules.
std::string Write(const Document& document);
// The same for Read(TextView): characters above U+00FF stand for themselves, which takes a quarter
// of the room and of the time.
Text WriteText(const Document& document);

}  // namespace platform::rtf
