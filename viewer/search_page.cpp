#include "viewer/search_page.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "viewer/texts.h"

namespace viewer {

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
      wholeWords_(new QCheckBox(texts::WholeWords(), this)),
      vowelSigns_(new QCheckBox(texts::WithVowelSigns(), this)),
      model_(new HitsModel(this)),
      painter_(new HitsPainter(look, *model_, this)) {
  setObjectName(QStringLiteral("searchPage"));
  status_->setObjectName(QStringLiteral("searchStatus"));
  status_->setFont(ViewerFont(kCaptionPixels));
  status_->setTextFormat(Qt::PlainText);
  wholeWords_->setObjectName(QStringLiteral("wholeWords"));
  vowelSigns_->setObjectName(QStringLiteral("vowelSigns"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(24, 14, 24, 14);
  auto* const top = new QHBoxLayout;
  top->addWidget(status_, 1);
  for (QCheckBox* box : {wholeWords_, vowelSigns_}) {
    box->setFont(ViewerFont(kCaptionPixels));
    QObject::connect(box, &QCheckBox::toggled, this, [this] { Search(wish_.words); });
    top->addWidget(box);
  }
  rows->addLayout(top);
  MakeList();
  rows->addWidget(list_, 1);
  worker_.onHits = [this](std::vector<book::Hit>&& hits) { Take(std::move(hits)); };
  worker_.onEnd = [this] { Tell(true); };
}

void SearchPage::MakeList() {
  auto* const list = new List(this);
  list_ = list;
  list->setObjectName(QStringLiteral("hits"));
  list->setAccessibleName(texts::Hits());
  list->setFrameShape(QFrame::NoFrame);
  list->setMouseTracking(true);
  list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->viewport()->setAutoFillBackground(false);
  list->setItemDelegate(painter_);
  list->setModel(model_);
  list->onEnter = [this](const QModelIndex& index) { Choose(index); };
  QObject::connect(list, &QListView::clicked, this,
                   [this](const QModelIndex& index) { Choose(index); });
}

SearchPage::~SearchPage() = default;

void SearchPage::Search(const QString& words) {
  wish_ = {words, wholeWords_->isChecked(),
           vowelSigns_->isChecked() ? book::VowelSigns::kCount : book::VowelSigns::kPassedOver};
  if (words.isEmpty()) return;
  model_->Clear();
  painter_->SetQuery(book::Query(wish_));
  Tell(false);
  worker_.Start(root_, wish_);
}

void SearchPage::Take(std::vector<book::Hit>&& hits) {
  const bool first = model_->Count() == 0;
  model_->Append(std::move(hits));
  if (first) list_->setCurrentIndex(model_->FirstHit());
  Tell(false);
}

void SearchPage::Stop() { worker_.Cancel(); }

void SearchPage::Tell(bool ended) {
  const auto count = static_cast<qint64>(model_->Count());
  const QString words = AsCaption(wish_.words.left(60));
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
  const book::Hit* const hit = model_->HitAt(index);
  if (hit != nullptr && onChosen) onChosen(*hit, wish_);
}

void SearchPage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), look_.panel);
}

}  // namespace viewer
