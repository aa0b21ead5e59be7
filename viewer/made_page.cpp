#include "viewer/made_page.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QUrl>

#include "book/media.h"
#include "book/text_file.h"

namespace viewer {
namespace {

// In characters, some hundreds of sheets.
constexpr qsizetype kLongestMadePage = 2'000'000;

constexpr QStringView kButton = u"<button";
constexpr QStringView kButtonEnd = u"</button>";

// Only the words are wanted: nothing is ever loaded for it.
class Markup : public QTextDocument {
 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

QString WithoutButtons(const QString& markup) {
  QString rest;
  qsizetype from = 0;
  for (;;) {
    const qsizetype open = markup.indexOf(kButton, from, Qt::CaseInsensitive);
    const qsizetype end = open < 0 ? -1 : markup.indexOf(kButtonEnd, open, Qt::CaseInsensitive);
    rest += QStringView(markup).sliced(from, end < 0 ? markup.size() - from : open - from);
    if (end < 0) return rest;
    from = end + kButtonEnd.size();
  }
}

// Such pages lie in Data/TXT and say "../IMG/x.jpg". A browser takes signs of an address in the
// name for such, so by hand they may have been written as it wants them.
QString PictureIn(const book::Folder& book, const QString& address) {
  const QString name = address.mid(address.lastIndexOf(u'/') + 1);
  const QString folder = QStringLiteral("Data/IMG/");
  const QString decoded = folder + QUrl::fromPercentEncoding(name.toUtf8());
  const bool isCoded = book.Resolve(folder + name).isEmpty() && !book.Resolve(decoded).isEmpty();
  return isCoded ? decoded : folder + name;
}

void TakeBlock(book::Page& page, const book::Folder& book, const QTextBlock& block) {
  QString text;
  const auto takeText = [&] {
    text = text.trimmed();
    if (!text.isEmpty()) page.parts.push_back({book::PagePart::Kind::kParagraph, text});
    text.clear();
  };
  for (auto each = block.begin(); !each.atEnd(); ++each) {
    const QTextFragment fragment = each.fragment();
    if (!fragment.charFormat().isImageFormat()) {
      text += fragment.text().replace(QChar::LineSeparator, u'\n');
      continue;
    }
    takeText();
    const QString address = fragment.charFormat().toImageFormat().name();
    page.parts.push_back({book::PagePart::Kind::kPicture, PictureIn(book, address)});
  }
  takeText();
}

// The template says the title twice: as that of the window, and above the text.
void DropTitle(book::Page& page) {
  if (page.parts.empty() || page.parts.front().kind != book::PagePart::Kind::kParagraph) return;
  const QString first = page.parts.front().text.simplified();
  if (first == page.title.simplified()) page.parts.erase(page.parts.begin());
}

}  // namespace

std::optional<book::Page> ReadMadePage(const book::Folder& book, const book::Node& node) {
  const QString made = book::PrintPageOf(book, node);
  const std::optional<QString> text = made.isEmpty() ? std::nullopt : book::ReadText(made);
  if (!text || text->size() > kLongestMadePage) return std::nullopt;
  Markup markup;
  markup.setHtml(WithoutButtons(*text));
  book::Page page;
  page.title = markup.metaInformation(QTextDocument::DocumentTitle).trimmed();
  for (QTextBlock block = markup.begin(); block.isValid(); block = block.next()) {
    TakeBlock(page, book, block);
  }
  DropTitle(page);
  return page;
}

}  // namespace viewer
