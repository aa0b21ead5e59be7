#include "viewer/page_sections.h"

#include <algorithm>

namespace viewer {
namespace {

constexpr qsizetype kWeightOfPicture = 5'000;
constexpr qsizetype kWeightOfLine = 20;  // empty ones take their time, too

// How much of the text from `from` on makes one paragraph of the document.
qsizetype PieceLength(const QString& text, qsizetype from) {
  if (text.size() - from <= kLongestParagraph) return text.size() - from;
  const QStringView piece = QStringView(text).sliced(from, kLongestParagraph);
  const qsizetype blank = piece.lastIndexOf(u' ');
  if (blank > kLongestParagraph / 2) return blank + 1;
  const bool splitsPair = text[from + kLongestParagraph].isLowSurrogate();
  return kLongestParagraph - (splitsPair ? 1 : 0);
}

qsizetype WeightOf(const book::Page& page) {
  qsizetype weight = 0;
  for (book::PagePlace place; place.part < page.parts.size();) {
    const PagePiece piece = PieceAt(page, place);
    weight += piece.weight;
    place = piece.next;
  }
  return weight;
}

}  // namespace

PagePiece PieceAt(const book::Page& page, book::PagePlace place) {
  const book::PagePart& part = page.parts[place.part];
  if (part.kind == book::PagePart::Kind::kPicture) {
    return {part.text.size(), kWeightOfPicture, {place.part + 1, 0}};
  }
  const qsizetype length = PieceLength(part.text, place.offset);
  const qsizetype end = place.offset + length;
  const book::PagePlace next = end < part.text.size() ? book::PagePlace{place.part, end}
                                                      : book::PagePlace{place.part + 1, 0};
  const qsizetype lines = 1 + QStringView(part.text).sliced(place.offset, length).count(u'\n');
  return {length, length + lines * kWeightOfLine, next};
}

std::vector<book::PagePlace> CutIntoSections(const book::Page& page) {
  const qsizetype whole = WeightOf(page);
  const qsizetype count = std::max<qsizetype>(1, (whole + kWeightOfSection - 1) / kWeightOfSection);
  std::vector<book::PagePlace> places = {{}};
  qsizetype weight = 0;
  for (book::PagePlace place; place.part < page.parts.size();) {
    const PagePiece piece = PieceAt(page, place);
    weight += piece.weight;
    place = piece.next;
    const auto made = static_cast<qsizetype>(places.size());
    if (made < count && weight >= whole / count * made) places.push_back(place);
  }
  places.push_back({page.parts.size(), 0});
  return places;
}

}  // namespace viewer
