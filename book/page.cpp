#include "book/page.h"

#include <algorithm>

#include "book/text_file.h"

namespace book {
namespace {

constexpr QStringView kTitle = u"<pgTitle>";
constexpr QStringView kTitleEnd = u"</pgTitle>";
constexpr QStringView kParagraph = u"<pgMain>";
constexpr QStringView kParagraphEnd = u"</pgMain>";
constexpr QStringView kPicture = u"<IMG src=\"";
constexpr QStringView kPictureEnd = u"\">";

// In characters; a tag that goes on for longer is none. Bounds the work on a damaged page.
constexpr qsizetype kLongestPath = 4096;

// A part each would make hundreds of megabytes of a damaged page.
constexpr int kMostSingleLines = 10'000;
constexpr qsizetype kLinesTogether = 4096;  // in characters

bool IsLineEnd(QChar c) { return c == u'\r' || c == u'\n'; }

class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) {}

  Page Read() {
    at_ = ReadTitle();
    while (at_ < text_.size()) ReadPart();
    DropBlankEnds();
    return std::move(page_);
  }

 private:
  bool Stands(QStringView what, qsizetype at) const { return text_.sliced(at).startsWith(what); }

  // Returns where the body starts: what stands before the title is nobody's text.
  qsizetype ReadTitle() {
    const qsizetype open = text_.indexOf(kTitle);
    const qsizetype end = open < 0 ? -1 : text_.indexOf(kTitleEnd, open);
    if (end < 0) return 0;
    const qsizetype start = open + kTitle.size();
    page_.title = text_.sliced(start, end - start).trimmed().toString();
    return end + kTitleEnd.size();
  }

  void ReadPart() {
    if (text_[at_].isSpace()) {
      ++at_;
    } else if (Stands(kParagraph, at_)) {
      ReadParagraph();
    } else if (Stands(kPicture, at_)) {
      ReadPicture();
    } else {
      ReadStray();
    }
  }

  // A paragraph's text is free to hold tags; its own end is one with which a line ends. One that
  // was never closed ends where a line starts the next.
  void ReadParagraph() {
    const qsizetype start = at_ + kParagraph.size();
    for (qsizetype at = text_.indexOf(u'<', start); at >= 0; at = text_.indexOf(u'<', at + 1)) {
      const bool closes = Stands(kParagraphEnd, at) && EndsPart(at + kParagraphEnd.size());
      if (!closes && !StartsNext(at)) continue;
      AddParagraph(start, at);
      at_ = at + (closes ? kParagraphEnd.size() : 0);
      return;
    }
    AddParagraph(start, text_.size());
    at_ = text_.size();
  }

  bool EndsPart(qsizetype at) const {
    while (at < text_.size() && text_[at] == u' ') ++at;
    return at == text_.size() || IsLineEnd(text_[at]) || Stands(kParagraph, at) ||
           Stands(kPicture, at);
  }

  bool StartsNext(qsizetype at) const { return Stands(kParagraph, at) && IsLineEnd(text_[at - 1]); }

  void ReadPicture() {
    const qsizetype start = at_ + kPicture.size();
    const QStringView tag = text_.sliced(start, std::min(text_.size() - start, kLongestPath));
    const QStringView path = tag.first(std::max<qsizetype>(tag.indexOf(kPictureEnd), 0));
    if (path.isEmpty() || path.contains(u'\n')) return ReadStray();
    page_.parts.push_back({PagePart::Kind::kPicture, path.toString()});
    at_ = start + path.size() + kPictureEnd.size();
  }

  // Text outside all elements isn't lost either.
  void ReadStray() {
    const qsizetype start = at_++;
    const qsizetype least = ++strayLines_ > kMostSingleLines ? kLinesTogether : 0;
    while (at_ < text_.size() && !EndsStray(start + least)) ++at_;
    AddParagraph(start, at_);
  }

  bool EndsStray(qsizetype least) const {
    return (at_ >= least && IsLineEnd(text_[at_])) || Stands(kParagraph, at_) ||
           (IsLineEnd(text_[at_ - 1]) && Stands(kPicture, at_));
  }

  void AddParagraph(qsizetype start, qsizetype end) {
    QString text = text_.sliced(start, end - start).toString();
    text.replace(QLatin1String("&nbsp;"), QString(QChar::Nbsp));
    if (QStringView(text).trimmed().isEmpty()) text.clear();
    page_.parts.push_back({PagePart::Kind::kParagraph, std::move(text)});
  }

  void DropBlankEnds() {
    const auto isBlank = [](const PagePart& part) { return part.text.isEmpty(); };
    std::vector<PagePart>& parts = page_.parts;
    const auto last = std::find_if_not(parts.rbegin(), parts.rend(), isBlank);
    parts.erase(last.base(), parts.end());
    parts.erase(parts.begin(), std::find_if_not(parts.begin(), parts.end(), isBlank));
  }

  QStringView text_;
  qsizetype at_ = 0;
  int strayLines_ = 0;
  Page page_;
};

}  // namespace

Page ParsePage(QStringView text) { return Reader(text).Read(); }

Page ForReaders(Page page, Digits digits) {
  page.title = ReadingText(page.title, digits);
  for (PagePart& part : page.parts) {
    if (part.kind == PagePart::Kind::kParagraph) part.text = ReadingText(part.text, digits);
  }
  return page;
}

std::optional<Page> ReadPage(const Folder& book, const QString& sourceInBook) {
  const std::optional<QString> text = ReadText(book, sourceInBook);
  if (!text) return std::nullopt;
  return ParsePage(*text);
}

}  // namespace book
