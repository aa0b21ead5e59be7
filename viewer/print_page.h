// What is printed of an entry.
#pragma once

#include <QTextDocument>
#include <memory>

#include "viewer/book/contents.h"
#include "viewer/book/folder.h"
#include "viewer/book/page.h"

namespace viewer {

// The page made for printing; null where the book has none, or one of thousands of sheets.
std::unique_ptr<QTextDocument> MadePrintPage(const BookFolder& book, const Node& node);

// What stands between the places of the page itself, under its title, in black on white.
std::unique_ptr<QTextDocument> PageForPrint(const BookFolder& book, const Page& page,
                                            PagePlace from, PagePlace until);

}  // namespace viewer
