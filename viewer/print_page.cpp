#include "viewer/print_page.h"

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
// In characters, some hundreds of sheets.
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

std::unique_ptr<QTextDocument> MakeDocument(const BookFolder& book) {
  auto document = std::make_unique<PrintDocument>(book);
  QTextOption option = document->defaultTextOption();
  option.setTextDirection(Qt::RightToLeft);
  document->setDefaultTextOption(option);
  return document;
}

}  // namespace

std::unique_ptr<QTextDocument> MadePrintPage(const BookFolder& book, const Node& node) {
  const QString made = PrintPageOf(book, node);
  const std::optional<QString> text = made.isEmpty() ? std::nullopt : ReadText(made);
  if (!text || text->size() > kLongestPrint) return nullptr;
  std::unique_ptr<QTextDocument> document = MakeDocument(book);
  document->setHtml(*text);
  return document;
}

std::unique_ptr<QTextDocument> PageForPrint(const BookFolder& book, const Page& page,
                                            PagePlace from, PagePlace until) {
  std::unique_ptr<QTextDocument> document = MakeDocument(book);
  const PageStyle style;
  BeginPage(*document, page.title, style);
  while (from < until) from = AppendStep(*document, book, page, from, until, style);
  return document;
}

}  // namespace viewer
