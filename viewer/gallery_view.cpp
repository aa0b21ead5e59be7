#include "viewer/gallery_view.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "viewer/picture_show.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr QSize kCell(210, 212);
constexpr int kPictureHeight = 146;
constexpr int kMargin = 14;

}  // namespace

class GalleryView::Model : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void SetGallery(std::vector<book::Picture> gallery) {
    beginResetModel();
    pictures = std::move(gallery);
    endResetModel();
  }
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(pictures.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= pictures.size()) return {};
    if (role == Qt::DisplayRole) return AsCaption(pictures[row].title);
    if (role == Qt::ToolTipRole) return AsToolTip(pictures[row].title);
    return {};
  }

  std::vector<book::Picture> pictures;
};

class GalleryView::Painter : public QStyledItemDelegate {
 public:
  explicit Painter(GalleryView& view) : QStyledItemDelegate(&view), view_(view) {}

  QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                 const QModelIndex& /*index*/) const override {
    return kCell;
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const Look& look = view_.look_;
    const book::Picture& picture = view_.model_->pictures[static_cast<std::size_t>(index.row())];
    const bool chosen = (option.state & (QStyle::State_Selected | QStyle::State_MouseOver)) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(look.card);
    painter->setPen(chosen ? QPen(look.accent, 2.5) : QPen(look.edge, 1));
    const QRect card = option.rect.adjusted(6, 6, -6, -6);
    painter->drawRoundedRect(card, 8, 8);
    QRect box = card.adjusted(8, 8, -8, -8);
    if (!picture.title.isEmpty()) box.setHeight(kPictureHeight - 8);
    PaintPicture(*painter, box, picture, index);
    painter->setPen(look.ink);
    painter->setFont(ViewerFont(kNotePixels));
    const QRect words(box.left(), box.bottom() + 4, box.width(), card.bottom() - box.bottom() - 8);
    DrawText(*painter, words, index.data().toString(), 2, Qt::AlignHCenter | Qt::AlignVCenter);
    painter->restore();
  }

 private:
  void PaintPicture(QPainter& painter, const QRect& box, const book::Picture& picture,
                    const QPersistentModelIndex& index) const {
    const PictureFile file{picture.path, true};
    const ShownPicture shown =
        view_.pictures_.Get({file, box.size(), Fit::kInside, view_.viewport(),
                             [&view = view_, index] { return view.visualRect(index); }});
    if (!shown.pixmap.isNull()) return DrawInMiddle(painter, box, shown.pixmap, shown.size);
    DrawPlaceholder(painter, box, view_.look_);
    const QString note = view_.pictures_.NoteInPlaceOf(file);
    if (note.isEmpty()) return;
    painter.setPen(kOnPicture);
    painter.setFont(ViewerFont(kNotePixels));
    DrawText(painter, box.adjusted(4, 4, -4, -6), note, 1, Qt::AlignHCenter | Qt::AlignBottom);
  }

  GalleryView& view_;
};

GalleryView::GalleryView(const Surroundings& surroundings, QWidget* parent)
    : QListView(parent),
      surroundings_(surroundings),
      look_(surroundings.look),
      pictures_(surroundings.pictures),
      model_(new Model(this)) {
  setObjectName(QStringLiteral("gallery"));
  setAccessibleName(texts::Gallery());
  setFrameShape(QFrame::NoFrame);
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setGridSize(kCell);
  setMouseTracking(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setViewportMargins(kMargin, kMargin, kMargin, kMargin);
  viewport()->setAutoFillBackground(false);
  setItemDelegate(new Painter(*this));
  setModel(model_);
  QObject::connect(this, &QListView::clicked, this,
                   [this](const QModelIndex& index) { OpenPicture(index.row()); });
}

GalleryView::~GalleryView() = default;

void GalleryView::ShowGallery(std::vector<book::Picture> gallery) {
  model_->SetGallery(std::move(gallery));
  scrollToTop();
  if (!model_->pictures.empty()) setCurrentIndex(model_->index(0));
}

void GalleryView::OpenPicture(int number) {
  if (number < 0 || static_cast<std::size_t>(number) >= model_->pictures.size()) return;
  auto* const show = new PictureShow(surroundings_, model_->pictures, number, window());
  show->onLeft = [this](int last) { setCurrentIndex(model_->index(last)); };
  show->showFullScreen();
}

void GalleryView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
      event->key() == Qt::Key_Space) {
    return OpenPicture(currentIndex().row());
  }
  QListView::keyPressEvent(event);
}

void GalleryView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (!model_->pictures.empty()) return;
  QPainter painter(viewport());
  painter.setPen(look_.faint);
  painter.setFont(ViewerFont(kHeadingPixels));
  DrawText(painter, viewport()->rect().adjusted(20, 20, -20, -20), texts::NoPictures(), 2,
           Qt::AlignHCenter | Qt::AlignVCenter);
}

}  // namespace viewer
