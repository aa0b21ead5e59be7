// A button that is drawn in the book's own colours.
#pragma once

#include <QAbstractButton>
#include <QString>

#include "viewer/look.h"

namespace viewer {

class FlatButton : public QAbstractButton {
 public:
  enum class Place { kBar, kPage };
  // The name is its objectName. The caption may hold any character: none stands for a key.
  FlatButton(const QString& name, const QString& caption, const Look& look, Place place,
             QWidget* parent);

  void SetCaption(const QString& caption);
  const QString& Caption() const { return caption_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const Look& look_;
  Place place_;
  QString caption_;
};

}  // namespace viewer
