// The pictures of a gallery as thumbnails; a click or Enter shows one over the whole screen.
#pragma once

#include <QListView>
#include <vector>

#include "book/folder.h"
#include "book/gallery.h"
#include "viewer/look.h"
#include "viewer/pictures.h"
#include "viewer/surroundings.h"

namespace viewer {

class GalleryView : public QListView {
 public:
  GalleryView(const Surroundings& surroundings, QWidget* parent);
  GalleryView(const GalleryView&) = delete;
  GalleryView& operator=(const GalleryView&) = delete;
  ~GalleryView() override;

  void ShowGallery(std::vector<book::Picture> gallery);
  // Over the whole screen.
  void OpenPicture(int number);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  class Model;
  class Painter;

  const Surroundings& surroundings_;
  const Look& look_;
  Pictures& pictures_;
  Model* model_;
};

}  // namespace viewer
