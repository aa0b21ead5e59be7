// A text file of a book: UTF-16, little-endian, normally with the byte order mark FF FE.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <functional>
#include <optional>

#include "book/folder.h"

namespace book {

// In bytes. What a file holds beyond it is left out, with a warning.
inline constexpr qint64 kLongestText = 64LL * 1024 * 1024;

// Takes either byte order and UTF-8 by their marks; without a mark little-endian. A last odd byte
// is dropped.
QString DecodeText(QByteArrayView bytes);

// Nothing, with a warning, where there is no ordinary file or it can't be read.
[[nodiscard]] std::optional<QString> ReadText(const QString& path);

// The same for a file of the book, "DATA/TXT/x.htm".
[[nodiscard]] std::optional<QString> ReadText(const Folder& book, const QString& pathInBook);

// Is given a piece of a text, and how many characters are still to come.
using TakePiece = std::function<void(QStringView piece, qsizetype toCome)>;
// The same a piece at a time, so that a long text needn't be held. False where there is nothing.
[[nodiscard]] bool ReadTextInPieces(const Folder& book, const QString& pathInBook,
                                    const TakePiece& take);

}  // namespace book
