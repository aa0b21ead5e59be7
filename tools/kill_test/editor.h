// The random editor at the real windows.
#pragma once

#include <string>

#include "tests/support/gallery_desk.h"
#include "tools/kill_test/model.h"

namespace kill_test {

class Editor {
 public:
  // `work` is a folder of the host that outlives the process: texts, pictures, book and records lie
  // in it, each folder made if it isn't there.
  explicit Editor(const std::string& work);

  // Opens the workbench on the first collection.
  void Open();
  // Whether something is offered; presses the button that brings it back.
  bool BringBack();
  void Do(const Operation& operation);
  // What stands there, as the model describes it; with what the model doesn't know after it.
  std::string Described();
  std::string ListAndCaption();
  // F12; false where the collection wasn't built.
  bool Build();

  // The input text, as the clean-up leaves it.
  static platform::Text InputText();

 private:
  void DoInRow(const Operation& operation);
  void InRow(int row, const std::function<void()>& act);
  void PutPictureIntoText(int row);
  void TickEntryPicture(int row, int picture);
  void TickPicture(int picture);
  platform::Text PicturesPath() const;

  std::string work_;
  testing_support::GalleryDesk desk_;
};

}  // namespace kill_test
