#include "viewer/collection_page.h"

#include <QPainter>
#include <QProgressDialog>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "viewer/made_page.h"
#include "viewer/print_page.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kWidestContentsBeside = 310;
constexpr int kWidestContents = 620;
constexpr int kMargin = 20;
constexpr int kTitleHeight = 74;
constexpr int kFilterHeight = 34;

QString KeyOfCollection(const book::Collection& collection) {
  return collection.row + QString::number(collection.number);
}

}  // namespace

CollectionPage::CollectionPage(const Surroundings& surroundings, QWidget* parent)
    : QWidget(parent),
      surroundings_(surroundings),
      contents_(surroundings.look, this),
      reader_(this),
      sheets_(&reader_),
      page_(surroundings.book, surroundings.look, surroundings.pictures, &sheets_),
      gallery_(surroundings, &sheets_),
      sections_(surroundings.look, &reader_),
      bar_(surroundings, &reader_),
      find_(surroundings.look, &reader_),
      filter_(this) {
  setObjectName(QStringLiteral("collection"));
  reader_.setObjectName(QStringLiteral("reader"));
  sheets_.setObjectName(QStringLiteral("sheets"));
  sheets_.addWidget(&page_);
  sheets_.addWidget(&gallery_);
  auto* const rows = new QVBoxLayout(&reader_);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(&sheets_, 1);
  rows->addWidget(&find_);
  rows->addWidget(&sections_);
  rows->addWidget(&bar_);
  contents_.viewport()->setAutoFillBackground(false);
  contents_.onChosen = [this](int node) {
    onLeave();
    ShowEntry(node);
    ShowText(true);
    onArrive();
  };
  // Beside the page the text follows the reader's way through the contents.
  if (!IsApart()) contents_.onSelected = [this](int node) { Go(node); };
  page_.onSection = [this] { sections_.Show(page_.Section(), page_.SectionCount()); };
  sections_.onChosen = [this](int section) { page_.ShowSection(section); };
  sections_.hide();
  bar_.onStep = [this](int step) { Step(step); };
  bar_.onZoom = [this](int pixels) { onZoom(pixels); };
  bar_.onPrint = [this] { Print(); };
  MakeFindBar();
  MakeFilter();
}

void CollectionPage::MakeFindBar() {
  find_.onWords = [this](const QString& words) {
    page_.Find(book::Query({.words = words}));
    find_.Tell(page_.FoundPlace(), page_.FoundCount());
  };
  find_.onStep = [this](int step) {
    page_.StepFound(step);
    find_.Tell(page_.FoundPlace(), page_.FoundCount());
  };
  find_.onClosed = [this] {
    page_.Find({});
    page_.setFocus();
  };
}

// The arrows and Enter lead from the filter into the list.
void CollectionPage::MakeFilter() {
  filter_.setObjectName(QStringLiteral("contentsFilter"));
  filter_.setPlaceholderText(texts::FilterContents());
  filter_.setAccessibleName(texts::FilterContents());
  filter_.setClearButtonEnabled(true);
  filter_.setMaxLength(200);
  QObject::connect(&filter_, &QLineEdit::textChanged, this,
                   [this](const QString& words) { contents_.Filter(words); });
  QObject::connect(&filter_, &QLineEdit::returnPressed, this, [this] { contents_.setFocus(); });
}

bool CollectionPage::FindInPage() {
  const bool isPage = sheets_.currentWidget() == &page_ && !page_.IsNotice();
  if (!isPage || (IsApart() && !readsText_)) return false;
  find_.Open();
  return true;
}

void CollectionPage::Go(int node) {
  onLeave();
  ShowEntry(node);
  onArrive();
}

void CollectionPage::Load(const book::Collection& collection) {
  bar_.Silence();
  openParts_[KeyOfCollection(collection_)] = contents_.Model().OpenParts();
  find_.hide();
  filter_.clear();
  collection_ = collection;
  picture_ = book::PictureOf(surroundings_.book, collection);
  contents_.SetContents(book::ReadContents(surroundings_.book, collection),
                        openParts_[KeyOfCollection(collection)]);
  current_ = -1;
}

void CollectionPage::Open(const book::Collection& collection) {
  Load(collection);
  const int first = contents_.Model().NextEntry(-1, 1);
  if (first >= 0) {
    ShowEntry(first);
  } else {
    page_.ShowNotice(texts::NoEntries());
    sheets_.setCurrentWidget(&page_);
    bar_.ShowEntry({}, false, false);
    bar_.AllowPrinting(false);
  }
  ShowText(first < 0);
  contents_.setFocus();
}

void CollectionPage::OpenAt(const book::Hit& hit, const book::Wish& wish) {
  Load(hit.collection);
  ShowEntry(hit.node, book::Query(wish));
  ShowText(true);
  if (hit.part >= 0) page_.GoToWords({static_cast<std::size_t>(hit.part), hit.offset});
}

bool CollectionPage::GoBack() {
  bar_.Silence();
  if (!IsApart() || !readsText_) return false;
  ShowText(false);
  contents_.setFocus();
  return true;
}

void CollectionPage::Step(int step) {
  if (IsApart() && !readsText_) return;
  const int next = contents_.Model().NextEntry(current_, step);
  if (next >= 0) Go(next);
}

void CollectionPage::SetStyle(const ReadingStyle& style) {
  const bool hasOtherDigits = style.digits != style_.digits;
  style_ = style;
  contents_.SetPixels(ListPixels(style, ContentsList::kUsualPixels));
  if (hasOtherDigits && current_ >= 0) {
    const book::PagePlace place = page_.ReadersPlace();
    const int node = std::exchange(current_, -1);
    ShowEntry(node);
    page_.GoTo(place);
  }
  page_.SetStyle(style);
}

void CollectionPage::OpenPlace(const book::Collection& collection, const BookPlace& place) {
  Open(collection);
  const std::vector<book::Node>& nodes = contents_.Model().Nodes();
  const auto found = std::ranges::find_if(
      nodes, [&](const book::Node& node) { return !node.isTitle && node.source == place.source; });
  if (place.source.isEmpty() || found == nodes.end()) return;
  ShowEntry(static_cast<int>(found - nodes.begin()));
  ShowText(true);
  GoToPlace(place.place);
}

void CollectionPage::GoToPlace(book::PagePlace place) {
  if (sheets_.currentWidget() == &page_ && !page_.IsNotice()) page_.GoTo(place);
}

// With its contents alone on the screen the reader is in no entry.
BookPlace CollectionPage::ReadersPlace() const {
  BookPlace place;
  place.collection = KeyOfCollection(collection_);
  if (current_ < 0 || (IsApart() && !readsText_)) return place;
  const book::Node& node = contents_.Model().Nodes()[static_cast<std::size_t>(current_)];
  place.source = node.source;
  if (!node.isGallery) place.place = page_.ReadersPlace();
  return place;
}

QString CollectionPage::EntryTitle() const {
  if (current_ < 0 || (IsApart() && !readsText_)) return AsCaption(collection_.title);
  return AsCaption(contents_.Model().Nodes()[static_cast<std::size_t>(current_)].label);
}

void CollectionPage::ShowEntry(int node, const book::Query& words) {
  const std::vector<book::Node>& nodes = contents_.Model().Nodes();
  if (node < 0 || static_cast<std::size_t>(node) >= nodes.size()) return;
  if (node == current_ && words.IsEmpty()) return;
  current_ = node;
  find_.hide();
  contents_.Select(node);
  const book::Node& entry = nodes[static_cast<std::size_t>(node)];
  if (entry.isGallery) {
    gallery_.ShowGallery(book::ReadGallery(surroundings_.book, entry.source));
    sheets_.setCurrentWidget(&gallery_);
    sections_.hide();
  } else {
    ShowPage(entry, words);
  }
  const ContentsModel& model = contents_.Model();
  bar_.ShowEntry(entry, model.NextEntry(node, -1) >= 0, model.NextEntry(node, 1) >= 0);
  bar_.AllowPrinting(!page_.IsNotice());
}

void CollectionPage::ShowPage(const book::Node& node, const book::Query& words) {
  std::optional<book::Page> page = book::ReadPage(surroundings_.book, node.source);
  if (!page) page = ReadMadePage(surroundings_.book, node);
  sheets_.setCurrentWidget(&page_);
  if (!page) {
    page_.ShowNotice(texts::NoPage() + AsPath(node.source));
    return;
  }
  if (page->title.isEmpty()) page->title = node.label;
  page_.ShowPage(book::ForReaders(std::move(*page), style_.digits),
                 book::BackgroundOf(surroundings_.book, node), words);
}

void CollectionPage::ShowText(bool text) {
  readsText_ = text;
  reader_.setVisible(!IsApart() || text);
  contents_.setVisible(!IsApart() || !text);
  filter_.setVisible(!IsApart() || !text);
  Arrange();
  if (IsApart() && text) page_.setFocus();
  update();
}

void CollectionPage::Arrange() {
  if (!IsApart()) {
    const int beside = std::min(kWidestContentsBeside, width() / 3);
    PlaceContents({width() - beside, kTitleHeight, beside - 6, height() - kTitleHeight - 6});
    reader_.setGeometry(0, 0, width() - beside - 4, height());
    return;
  }
  reader_.setGeometry(rect());
  const int wide = std::min(kWidestContents, width() - CoverBox().width() - 3 * kMargin);
  PlaceContents({width() - kMargin - wide, kMargin + kTitleHeight, wide,
                 height() - 2 * kMargin - kTitleHeight});
}

// Under their filter.
void CollectionPage::PlaceContents(const QRect& box) {
  filter_.setGeometry(box.left() + 8, box.top(), box.width() - 16, kFilterHeight - 6);
  contents_.setGeometry(box.adjusted(0, kFilterHeight, 0, 0));
}

// Where the collection's picture stands beside the contents, in the second template.
QRect CollectionPage::CoverBox() const {
  const int high = height() - 2 * kMargin;
  const int wide = std::min(high * 3 / 4, width() * 2 / 5);
  const int tall = std::min(high, wide * 4 / 3);
  return {kMargin, (height() - tall) / 2, wide, tall};
}

void CollectionPage::resizeEvent(QResizeEvent* /*event*/) { Arrange(); }

void CollectionPage::paintEvent(QPaintEvent* /*event*/) {
  const Look& look = surroundings_.look;
  QPainter painter(this);
  painter.fillRect(rect(), look.panel);
  if (IsApart() && !readsText_) {
    const QRect box = CoverBox();
    const QPixmap cover =
        surroundings_.pictures.Get({{picture_}, box.size(), Fit::kCovering, this}).pixmap;
    cover.isNull() ? DrawPlaceholder(painter, box, look) : DrawCovering(painter, box, cover);
  }
  if (IsApart() && readsText_) return;
  const QRect list = contents_.geometry();
  painter.setFont(ViewerFont(look.layout.collectionPixels, true));
  painter.setPen(look.accent);
  const QRect title(list.left() + 8, filter_.y() - kTitleHeight, list.width() - 16,
                    kTitleHeight - 10);
  DrawText(painter, title, AsCaption(collection_.title), 2, Qt::AlignVCenter);
  painter.fillRect(QRect(list.left() + 8, filter_.y() - 5, list.width() - 16, 1), look.edge);
  if (!IsApart()) painter.fillRect(QRect(list.left() - 2, 0, 1, height()), look.edge);
}

void CollectionPage::Print() {
  if (!surroundings_.settings.print || page_.IsNotice() || sheets_.currentWidget() != &page_)
    return;
  surroundings_.outside.print([this](QPrinter& printer) { PrintOn(printer); }, window());
}

void CollectionPage::PrintOn(QPrinter& printer) {
  // It comes up only where printing goes on for a while.
  QProgressDialog progress(texts::Printing(), texts::Cancel(), 0, 0, window());
  progress.setObjectName(QStringLiteral("printing"));
  progress.setWindowModality(Qt::WindowModal);
  const bool printed =
      PrintPage(printer, surroundings_.book, page_.Shown(), [&](int section, int count) {
        progress.setMaximum(count);
        progress.setValue(section);
        return !progress.wasCanceled();
      });
  if (printed || progress.wasCanceled()) return;
  progress.reset();
  Tell(window(), texts::NotPrinted());
}

}  // namespace viewer
