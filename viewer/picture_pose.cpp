#include "viewer/picture_pose.h"

#include <algorithm>
#include <utility>

namespace viewer {
namespace {

constexpr double kLargest = 16;

}  // namespace

void PicturePose::Show(QSizeF whole, QSizeF box) {
  whole_ = whole.expandedTo({1, 1});
  box_ = box.expandedTo({1, 1});
  Pan({0, 0});
}

QSizeF PicturePose::Turned(QSizeF size) const {
  return quarters_ % 2 == 0 ? size : size.transposed();
}

void PicturePose::Turn(bool right) {
  quarters_ = (quarters_ + (right ? 1 : 3)) % 4;
  middle_ = right ? QPointF(-middle_.y(), middle_.x()) : QPointF(middle_.y(), -middle_.x());
  Pan({0, 0});
}

void PicturePose::Fit() {
  scale_.reset();
  middle_ = {};
}

void PicturePose::ShowWholeSize() {
  scale_ = 1;
  middle_ = {};
}

// Never larger than it is.
double PicturePose::FittingScale() const {
  const QSizeF turned = Turned(whole_);
  return std::min({1.0, box_.width() / turned.width(), box_.height() / turned.height()});
}

void PicturePose::ZoomBy(double factor) {
  const double before = Scale();
  const double scale = std::clamp(before * factor, FittingScale(), kLargest);
  middle_ *= scale / before;
  scale_ = scale;
  if (scale <= FittingScale()) Fit();
  Pan({0, 0});
}

bool PicturePose::Pan(QPointF by) {
  const QSizeF beyond = (Turned(Size()) - box_).expandedTo({0, 0}) / 2;
  const QPointF before = middle_;
  middle_ += by;
  middle_.setX(std::clamp(middle_.x(), -beyond.width(), beyond.width()));
  middle_.setY(std::clamp(middle_.y(), -beyond.height(), beyond.height()));
  return middle_ != before;
}

QSizeF PicturePose::Size() const { return whole_ * Scale(); }

QRectF PicturePose::Place() const {
  const QSizeF size = Turned(Size());
  return {middle_ - QPointF(size.width() / 2, size.height() / 2), size};
}

}  // namespace viewer
