#include "viewer/print_page.h"

#include <QDebug>
#include <QFileInfo>
#include <QTextOption>
#include <QUrl>

#include "viewer/book/media.h"
#include "viewer/book/text_file.h"
#include "viewer/page_document.h"
#include "viewer/pictures.h"

namespace viewer {
namespace {

constexpr QSize kLargestPicture(600, 900);
// What a printer gets of one entry: some hundreds of sheets.
constexpr qsizetype kLongestPrint = 2'000'000;

// Loads the book's own pictures and nothing else.
class PrintDocument : public QTextDocument {
 public:
  explicit PrintDocument(const BookFolder& book) : book_(book) {}

 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::ImageResource) return {};
    // Print pages lie in Data/TXT and say "../IMG/x.jpg".
    const QString file = QFileInfo(name.path()).fileName();
    return DecodePicture(book_.Resolve(QStringLiteral("Data/IMG/") + file), kLargestPicture,
                         Fit::kInside);
  }

 private:
  const BookFolder& book_;
};

void SetRightToLeft(QTextDocument& document) {
  QTextOption option = document.defaultTextOption();
  option.setTextDirection(Qt::RightToLeft);
  document.setDefaultTextOption(option);
}

void FillFromPage(QTextDocument& document, const BookFolder& book, const Page& page) {
  const PageStyle style;
  BeginPage(document, page.title, style);
  for (PagePlace place; place.part < page.parts.size();) {
    place = AppendPage(document, book, page, place, style);
    if (document.characterCount() < kLongestPrint) continue;
    qWarning() << "the page is too long to be printed whole:" << page.title.left(80);
    return;
  }
}

}  // namespace

std::unique_ptr<QTextDocument> DocumentForPrint(const BookFolder& book, const Node& node,
                                                const Page& page) {
  auto document = std::make_unique<PrintDocument>(book);
  SetRightToLeft(*document);
  const QString made = PrintPageOf(book, node);
  const std::optional<QString> text = made.isEmpty() ? std::nullopt : ReadText(made);
  if (text && text->size() <= kLongestPrint) {
    document->setHtml(*text);
  } else {
    FillFromPage(*document, book, page);
  }
  return document;
}

}  // namespace viewer
