#include "book/gallery.h"

#include <optional>

#include "book/text_file.h"
#include "book/text_scan.h"

namespace book {
namespace {

constexpr QStringView kOpen = u"<img dtl=\"";
constexpr QStringView kClose = u"</img>";

// From after the open piece on. A title may hold quotes and brackets; a path can't.
std::optional<Picture> PictureIn(QStringView piece) {
  const qsizetype close = piece.lastIndexOf(kClose);
  const QStringView body = (close < 0 ? piece : piece.first(close)).trimmed();
  const qsizetype split = body.lastIndexOf(u"\">");
  if (split < 0) return std::nullopt;  // cut off before its path
  return Picture{body.first(split).trimmed().toString(),
                 body.sliced(split + 2).trimmed().toString()};
}

bool EndsPicture(QStringView line) {
  return line.startsWith(u"</gallery>") || line.startsWith(u"<node ") ||
         line.startsWith(u"</node>");
}

class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) {}

  std::vector<Picture> Read() {
    for (Line line = LineAt(text_, 0); line.start < text_.size(); line = LineAt(text_, line.next)) {
      const QStringView content = text_.sliced(line.start, line.end - line.start).trimmed();
      const bool starts = content.startsWith(kOpen);
      if (starts || EndsPicture(content)) Take(line.start);
      if (starts) start_ = text_.indexOf(kOpen, line.start) + kOpen.size();
      // A title may be of several lines, of which one may look like a picture's start, or end.
      if (content.endsWith(kClose) && IsWhole(line.end)) Take(line.end);
    }
    Take(text_.size());
    return std::move(pictures_);
  }

 private:
  std::optional<Picture> PictureUntil(qsizetype end) const {
    return start_ < 0 ? std::nullopt : PictureIn(text_.sliced(start_, end - start_));
  }

  bool IsWhole(qsizetype end) const {
    const std::optional<Picture> picture = PictureUntil(end);
    return picture && picture->path.startsWith(QLatin1String("Data/"), Qt::CaseInsensitive);
  }

  void Take(qsizetype end) {
    std::optional<Picture> picture = PictureUntil(end);
    if (picture) pictures_.push_back(std::move(*picture));
    start_ = -1;
  }

  QStringView text_;
  qsizetype start_ = -1;  // after the open piece of the picture in hand
  std::vector<Picture> pictures_;
};

}  // namespace

std::vector<Picture> ParseGallery(QStringView text) { return Reader(text).Read(); }

std::vector<Picture> ReadGallery(const Folder& book, const QString& sourceInBook) {
  const std::optional<QString> text = ReadText(book, sourceInBook);
  return text ? ParseGallery(*text) : std::vector<Picture>{};
}

}  // namespace book
