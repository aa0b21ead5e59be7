#include "viewer/pictures.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kKeptKilobytes = static_cast<int>(kKeptByWindow / 1024);
constexpr int kThreads = 2;
// One more is ready to begin where a thread has done with its own.
constexpr int kAtOnce = kThreads + 1;
// So many can hardly be seen at a time: some of them have been scrolled away.
constexpr std::size_t kManyWishes = 200;

}  // namespace

QString NoteInPlaceOf(const QString& path) {
  return path.isEmpty() ? texts::NoPicture() : texts::PictureNotShown();
}

Pictures::Pictures(const book::Folder& book, quint64 largest)
    : book_(book), largest_(largest), ready_(kKeptKilobytes) {
  pool_.setMaxThreadCount(kThreads);
}

Pictures::~Pictures() {
  pool_.clear();
  pool_.waitForDone();
}

void Pictures::Start() {
  started_ = true;
  std::ranges::reverse(wishes_);  // those of the first paint in their order
  DecodeNext();
}

// The two kinds of paths are never taken for each other.
QString Pictures::NameOf(const PictureFile& file) {
  return (file.isInBook ? u'b' : u'd') + file.path;
}

QString Pictures::NoteInPlaceOf(const PictureFile& file) const {
  if (file.path.isEmpty()) return viewer::NoteInPlaceOf(QString());
  return notes_.value(NameOf(file));
}

ShownPicture Pictures::Get(const PictureWish& wanted) {
  if (wanted.file.path.isEmpty() || IsBroken(wanted.file)) return {};
  const QString slot = (wanted.fit == Fit::kInside ? u'i' : u'c') + NameOf(wanted.file);
  const double ratio = wanted.waiting->devicePixelRatioF();
  const Wish wish{
      slot,
      QStringLiteral("%1x%2@%3").arg(wanted.box.width()).arg(wanted.box.height()).arg(ratio) + slot,
      wanted.file,
      wanted.box,
      wanted.fit,
      ratio,
      wanted.waiting,
      wanted.place};
  if (!ready_.contains(wish.key)) Ask(wish);
  return Ready(wish);
}

ShownPicture Pictures::Ready(const Wish& wish) const {
  const auto known = known_.constFind(wish.slot);
  if (known == known_.cend()) return {};
  for (const QString& key : {wish.key, known->last, known->before}) {
    const QPixmap* const pixmap = ready_.object(key);
    if (pixmap == nullptr) continue;
    const QSizeF size = SizeInBox(known->whole, wish.box * wish.ratio, wish.fit);
    return {*pixmap, size / wish.ratio, QSizeF(known->whole) / wish.ratio};
  }
  return {};
}

// As far as it can be seen.
QRect Pictures::PlaceOf(const Wish& wish) {
  if (!wish.waiting) return {};
  const QRect all = wish.waiting->rect();
  return wish.place ? wish.place().intersected(all) : all;
}

void Pictures::Ask(const Wish& wish) {
  if (pending_.contains(wish.key)) return;
  const auto drop = [this](const auto& isDropped) {
    std::erase_if(wishes_, [&](const Wish& each) {
      const bool drops = isDropped(each);
      if (drops) pending_.remove(each.key);
      return drops;
    });
  };
  drop(
      [&wish](const Wish& each) { return each.waiting == wish.waiting && each.slot == wish.slot; });
  if (wishes_.size() > kManyWishes) drop(IsStale);
  pending_.insert(wish.key);
  wishes_.push_back(wish);
  DecodeNext();
}

void Pictures::DecodeNext() {
  while (started_ && running_ < kAtOnce && !wishes_.empty()) {
    const Wish wish = std::move(wishes_.back());
    wishes_.pop_back();
    if (IsStale(wish)) {
      pending_.remove(wish.key);
      continue;
    }
    ++running_;
    pool_.start([this, wish] {
      const Taken taken = Decode(wish);
      QMetaObject::invokeMethod(
          this, [this, wish, taken] { Take(wish, taken); }, Qt::QueuedConnection);
    });
  }
}

// On a thread of the pool.
Pictures::Taken Pictures::Decode(const Wish& wish) {
  QString path = wish.file.path;
  if (wish.file.isInBook) {
    const QMutexLocker lock(&lookingUp_);
    path = book_.Resolve(wish.file.path);
  }
  return {path, DecodePicture(path, wish.box * wish.ratio, wish.fit, largest_)};
}

void Pictures::Take(const Wish& wish, const Taken& taken) {
  --running_;
  ++decoded_;
  pending_.remove(wish.key);
  if (taken.picture.image.isNull()) {
    notes_.insert(NameOf(wish.file), viewer::NoteInPlaceOf(taken.path));
  } else {
    Keep(wish, taken.picture);
  }
  if (!IsStale(wish)) wish.waiting->update(PlaceOf(wish));
  DecodeNext();
}

// Of one picture two sizes at the most: a window that grows would drive out all others.
void Pictures::Keep(const Wish& wish, const DecodedPicture& picture) {
  auto pixmap = std::make_unique<QPixmap>(QPixmap::fromImage(picture.image));
  pixmap->setDevicePixelRatio(wish.ratio * picture.image.devicePixelRatio());
  const qsizetype kilobytes = std::max<qsizetype>(1, picture.image.sizeInBytes() / 1024);
  ready_.insert(wish.key, pixmap.release(), kilobytes);
  Known& known = known_[wish.slot];
  known.whole = picture.whole;
  if (known.last == wish.key) return;
  if (known.before != wish.key) ready_.remove(known.before);
  known.before = std::exchange(known.last, wish.key);
}

}  // namespace viewer
