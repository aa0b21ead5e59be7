// A desk at which work was left unbuilt, and the window that offers it.
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/gallery_desk.h"
#include "tests/support/recovery_work.h"

namespace testing_support {

class LeftWorkTest : public testing::Test {
 protected:
  static bool IsShown() {
    const QWidget* window = Robot::FindWindow("Recovery");
    return window != nullptr && window->isVisible();
  }
  static std::string Says(const QString& label) {
    return Robot::FindAs<QLabel>("Recovery", label).text().toStdString();
  }
  static bool CanBring() { return Robot::Find("Recovery", "recoverBring").isEnabled(); }

  std::vector<std::filesystem::path> Records() const {
    const std::filesystem::path folder = desk.folder.HostPath("state/recovery");
    std::vector<std::filesystem::path> records;
    if (!std::filesystem::exists(folder)) return records;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      records.push_back(entry.path());
    return records;
  }

  // Everything of the work that the workbench holds.
  std::string Held() {
    recovery::Work work{.filed = static_cast<const filed::FiledWork&>(desk.form3),
                        .fields = {.title = desk.form3.bname.Text(),
                                   .restFile = desk.form3.currentBook,
                                   .chosenImage = desk.form3.chosenImage,
                                   .galleryFolder = desk.form3.pictures.galleryFolder},
                        .collection = {},
                        .rest = desk.form3.matn.Text()};
    std::string shown;
    for (const std::string& line : FormatDesk::Lines("bindex")) shown += line + "\n";
    return Described(work) + shown + FormatDesk::Shown("Com(9)") + FormatDesk::Shown("Com(12)");
  }

  // The workbench is closed and opened again.
  void OpenAnew() {
    Robot::CloseWindow("Form3");
    desk.PressNext();
  }

  // Five rows, and a paragraph that is left.
  void FileFive() {
    desk.OpenOn(u"identity\r\nHead\r\nText\r\nMain\r\nOther\r\nsome text\r\nand what is left");
    FormatDesk::Mark(Qt::Key_F6, "identity");
    FormatDesk::FileHeading("Head", "Text");
    FormatDesk::Mark(Qt::Key_F1, "Main");
    FormatDesk::FileHeading("Other", "some text");
    Robot::PressKey("Form3", "matn", Qt::Key_F4);
  }

  GalleryDesk desk;
};

}  // namespace testing_support
