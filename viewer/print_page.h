// What is printed of an entry.
#pragma once

#include <QTextDocument>
#include <memory>

#include "viewer/book/contents.h"
#include "viewer/book/folder.h"
#include "viewer/book/page.h"

namespace viewer {

// The page made for printing if the book has one, else the page itself in black on white.
std::unique_ptr<QTextDocument> DocumentForPrint(const BookFolder& book, const Node& node,
                                                const Page& page);

}  // namespace viewer
