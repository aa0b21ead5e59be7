// Persian as it should read: what readers are shown, search, copy and print. The book's files stay
// as they are.
#pragma once

#include <QString>
#include <QStringView>

namespace book {

enum class Digits { kAsTheyAre, kPersian };

// The text with U+200F (which the author's tool writes behind each ". : !", and in place of
// half-spaces) where it helps and nowhere else:
// - between two Latin letters or digits with one of ". : !" between them it is dropped: it would
//   turn 23.5 into 5.23, and an address round;
// - between two letters that join it is a half-space, U+200C;
// - elsewhere it stays.
// Arabic's yeh and kaf are Persian's. Persian digits are wanted for numbers alone: a Latin word or
// an address keeps its own. Linear; a text that has been through it comes out as it is.
QString ReadingText(QStringView text, Digits digits = Digits::kAsTheyAre);

}  // namespace book
