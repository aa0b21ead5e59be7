#include "book/contents.h"

#include <optional>

#include "book/text_file.h"
#include "book/text_scan.h"

namespace book {
namespace {

constexpr QStringView kOpen = u"<node label=\"";
constexpr QStringView kClose = u"</node>";
constexpr QStringView kSource = u"\" src=\"DATA/";

bool StartsElement(QStringView line) {
  return line.startsWith(kOpen) || line.startsWith(kClose) || line.startsWith(u"</Tree>");
}

bool DigitIsOn(QStringView digits, qsizetype place) {
  return place < digits.size() && digits[place] == u'1';
}

// `node` without its label: from the quote that ends it.
Node EntryOf(QStringView label, QStringView rest) {
  Node node;
  node.label = label.trimmed().toString();
  node.source = AttributeOf(rest, u" src=\"").toString();
  const QStringView status = AttributeOf(rest, u" mediaStatus=\"");
  node.hasAttachment = DigitIsOn(status, 0);
  node.hasSound = DigitIsOn(status, 1);
  node.hasFilm = DigitIsOn(status, 2);
  node.attachmentIsProgram = AttributeOf(rest, u" snd=\"") == u"1";
  node.attachmentExtension = AttributeOf(rest, u" pas=\"").toString();
  node.background = AttributeOf(rest, u" bgBackground=\"").toString();
  node.isGallery = AttributeOf(rest, u" pic=\"") == u"1";
  return node;
}

// A label may hold quotes and angle brackets, even what looks like the rest of a node; the rest
// itself can't, so the last of each counts.
Node NodeOf(QStringView element) {
  const QStringView body = element.sliced(kOpen.size());
  const qsizetype source = body.lastIndexOf(kSource);
  const bool isTitle = body.endsWith(u"\">");  // an entry ends with "/>"
  if (source >= 0 && !isTitle) return EntryOf(body.first(source), body.sliced(source));
  Node node;
  node.isTitle = true;
  const qsizetype end = body.lastIndexOf(u"\">");
  node.label = (end < 0 ? body : body.first(end)).trimmed().toString();
  return node;
}

class Reader {
 public:
  explicit Reader(QStringView text) : text_(text) {}

  Contents Read() {
    for (Line line = LineAt(text_, 0); line.start < text_.size(); line = LineAt(text_, line.next)) {
      const QStringView content = text_.sliced(line.start, line.end - line.start).trimmed();
      if (!StartsElement(content)) continue;  // blank, the head, or more of a label
      Take(line.start);
      start_ = line.start;
    }
    Take(text_.size());
    return std::move(contents_);
  }

 private:
  void Take(qsizetype end) {
    if (start_ < 0) return;
    const QStringView element = text_.sliced(start_, end - start_).trimmed();
    if (element.startsWith(kOpen)) Add(NodeOf(element));
    if (element.startsWith(kClose) && !open_.empty()) open_.pop_back();
  }

  void Add(Node node) {
    node.depth = static_cast<int>(open_.size());
    node.parent = open_.empty() ? -1 : open_.back();
    if (node.isTitle) open_.push_back(static_cast<int>(contents_.nodes.size()));
    contents_.nodes.push_back(std::move(node));
  }

  QStringView text_;
  qsizetype start_ = -1;  // of the element in hand
  std::vector<int> open_;
  Contents contents_;
};

}  // namespace

Contents ParseContents(QStringView text) { return Reader(text).Read(); }

Contents ReadContents(const Folder& book, const Collection& collection) {
  const std::optional<QString> text = ReadText(book, FileOf(collection));
  return text ? ParseContents(*text) : Contents{};
}

}  // namespace book
