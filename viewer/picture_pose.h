// How a picture lies before its reader: turned, fitted or enlarged, moved.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>

namespace viewer {

// In pixels of the widget. `whole` is the picture's own size, as its file has it.
class PicturePose {
 public:
  // The picture and where it may be seen. What was enlarged stays so.
  void Show(QSizeF whole, QSizeF box);

  // A quarter to the right, or to the left.
  void Turn(bool right);
  int Quarters() const { return quarters_; }

  bool IsFitted() const { return !scale_; }
  void Fit();
  void ShowWholeSize();
  // Around its middle; below the fitted size there is nothing, above it sixteen times its own.
  void ZoomBy(double factor);

  // As far as it reaches beyond the box; false if it doesn't.
  bool Pan(QPointF by);

  // Of the turned picture, from the middle of the box.
  QRectF Place() const;
  QSizeF Whole() const { return whole_; }
  // Of the picture before it is turned: what it would have to be decoded at.
  QSizeF Size() const;

 private:
  double FittingScale() const;
  double Scale() const { return scale_.value_or(FittingScale()); }
  QSizeF Turned(QSizeF size) const;

  QSizeF whole_{1, 1};
  QSizeF box_{1, 1};
  int quarters_ = 0;             // to the right
  std::optional<double> scale_;  // none where it is fitted
  QPointF middle_;               // from that of the box
};

}  // namespace viewer
