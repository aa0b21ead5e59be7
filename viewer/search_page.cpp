#include "viewer/search_page.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QVBoxLayout>

#include "book/shown_name.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kRowHeight = 100;

}  // namespace

class SearchPage::Model : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Clear() {
    beginResetModel();
    hits.clear();
    endResetModel();
  }
  void Append(std::vector<book::Hit>&& more) {
    const int first = static_cast<int>(hits.size());
    beginInsertRows({}, first, first + static_cast<int>(more.size()) - 1);
    for (book::Hit& hit : more) hits.push_back(std::move(hit));
    endInsertRows();
  }
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(hits.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || row >= hits.size()) return {};
    return AsCaption(hits[row].title);
  }

  std::vector<book::Hit> hits;
};

class SearchPage::Painter : public QStyledItemDelegate {
 public:
  Painter(const Look& look, const Model& model, QObject* parent)
      : QStyledItemDelegate(parent), look_(look), model_(model) {}

  QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                 const QModelIndex& /*index*/) const override {
    return {100, kRowHeight};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const book::Hit& hit = model_.hits[static_cast<std::size_t>(index.row())];
    const bool pointedAt = (option.state & (QStyle::State_Selected | QStyle::State_MouseOver)) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(look_.card);
    painter->setPen(pointedAt ? QPen(look_.accent, 2) : QPen(look_.edge, 1));
    const QRect card = option.rect.adjusted(4, 4, -4, -4);
    painter->drawRoundedRect(card, 8, 8);
    const QRect box = card.adjusted(14, 6, -14, -6);
    painter->setFont(ViewerFont(16, true));
    painter->setPen(look_.ink);
    DrawText(*painter, {box.left(), box.top(), box.width(), 28}, AsCaption(hit.title), 1,
             Qt::AlignVCenter);
    PaintSnippet(*painter, QPoint(box.left(), box.top() + 30), box.width(), hit);
    painter->setFont(ViewerFont(13));
    painter->setPen(look_.faint);
    DrawText(*painter, {box.left(), box.bottom() - 22, box.width(), 24},
             AsCaption(hit.collection.title), 1, Qt::AlignVCenter);
    painter->restore();
  }

 private:
  // One line, with the word that was found on a ground of its own.
  void PaintSnippet(QPainter& painter, QPoint place, int width, const book::Hit& hit) const {
    QString shown = hit.snippet;
    for (QChar& character : shown) {
      if (character.isSpace()) character = QLatin1Char(' ');
    }
    QTextLayout layout(book::WithSigns(shown), ViewerFont(14));
    QTextOption option(Qt::AlignRight);
    option.setTextDirection(Qt::RightToLeft);
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    QTextLayout::FormatRange mark;
    mark.start = static_cast<int>(hit.matchStart);
    mark.length = static_cast<int>(hit.matchLength);
    mark.format.setBackground(QColor(0xff, 0xd9, 0x66));
    mark.format.setForeground(Qt::black);
    layout.setFormats({mark});
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setLineWidth(width);
    layout.endLayout();
    painter.setPen(look_.ink);
    layout.draw(&painter, place);
  }

  const Look& look_;
  const Model& model_;
};

// Enter opens the hit.
class SearchPage::List : public QListView {
 public:
  explicit List(QWidget* parent) : QListView(parent) {}
  std::function<void(const QModelIndex&)> onEnter;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    enters ? onEnter(currentIndex()) : QListView::keyPressEvent(event);
  }
};

SearchPage::SearchPage(const QString& root, const Look& look, QWidget* parent)
    : QWidget(parent),
      root_(root),
      look_(look),
      status_(new QLabel(this)),
      model_(new Model(this)) {
  setObjectName(QStringLiteral("searchPage"));
  status_->setObjectName(QStringLiteral("searchStatus"));
  status_->setFont(ViewerFont(kCaptionPixels));
  status_->setTextFormat(Qt::PlainText);
  auto* const list = new List(this);
  list_ = list;
  list->setObjectName(QStringLiteral("hits"));
  list->setAccessibleName(texts::Hits());
  list->setFrameShape(QFrame::NoFrame);
  list->setUniformItemSizes(true);
  list->setMouseTracking(true);
  list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->viewport()->setAutoFillBackground(false);
  list->setItemDelegate(new Painter(look, *model_, this));
  list->setModel(model_);
  list->onEnter = [this](const QModelIndex& index) { Choose(index); };
  QObject::connect(list, &QListView::clicked, this,
                   [this](const QModelIndex& index) { Choose(index); });
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(24, 14, 24, 14);
  rows->addWidget(status_);
  rows->addWidget(list, 1);
  worker_.onHits = [this](std::vector<book::Hit>&& hits) {
    const bool first = model_->hits.empty();
    model_->Append(std::move(hits));
    if (first) list_->setCurrentIndex(model_->index(0));
    Tell(false);
  };
  worker_.onEnd = [this] { Tell(true); };
}

SearchPage::~SearchPage() = default;

void SearchPage::Search(const QString& words) {
  words_ = words;
  model_->Clear();
  Tell(false);
  worker_.Start(root_, words);
}

void SearchPage::Stop() { worker_.Cancel(); }

void SearchPage::Tell(bool ended) {
  const auto count = static_cast<qint64>(model_->hits.size());
  const QString words = AsCaption(words_.left(60));
  QString text;
  if (count == 0) {
    text = ended ? texts::NotFound().arg(words) : texts::Searching();
  } else {
    text = texts::FoundWith().arg(PersianNumber(count), words);
    if (!ended) text += texts::SearchGoesOn();
    if (count >= SearchWorker::kMostHits) text += texts::FirstHits();
  }
  status_->setText(text);
}

void SearchPage::Choose(const QModelIndex& index) {
  if (!index.isValid() || !onChosen) return;
  onChosen(model_->hits[static_cast<std::size_t>(index.row())], words_);
}

void SearchPage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), look_.panel);
}

}  // namespace viewer
