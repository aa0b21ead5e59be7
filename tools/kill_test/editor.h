// The random editor at the real windows, in a process whose tables can be looked into.
#pragma once

#include <string>

#include "tests/support/gallery_desk.h"
#include "tools/kill_test/model.h"
#include "tools/kill_test/screen.h"

namespace kill_test {

class Editor : public Screen {
 public:
  // `work` is a folder of the host that outlives the process: texts, pictures, book and records lie
  // in it.
  explicit Editor(const std::string& work);

  // Opens the workbench on the first collection.
  void Open();
  // What stands there, as the model describes it.
  std::string Described();

 protected:
  testing_support::Robot& TheRobot() override { return desk_.robot; }
  void PutPictureIntoText() override;
  void Attach() override;
  void OpenPictures(const QString& window) override;

 private:
  platform::Text PicturesPath() const;

  std::string work_;
  testing_support::GalleryDesk desk_;
};

// The input text in the machine's code page, and as the clean-up leaves it.
std::string InputBytes();
platform::Text CleanInput();

}  // namespace kill_test
