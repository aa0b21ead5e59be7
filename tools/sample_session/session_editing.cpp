// What the editor does with entries once they are filed: pictures and media, galleries.
#include <QTextBlock>
#include <QTextEdit>

#include "tools/sample_session/session.h"

namespace sample {
namespace {

using testing_support::Robot;

const QString kPictureFolder = QStringLiteral("Negareh");

}  // namespace

// The paragraphs of the text are rebuilt to be looked at; another click on the file brings back
// what the passages are to be found in.
void Session::TryRebuilding(const QString& book) {
  Robot::Click("Form3", "HazC(12)");
  TakePicture("Form3", QStringLiteral("paragraphs-rebuilt"));
  Robot::ClickLine("Form3", "books", book);
}

// The workbench is closed before its collection is built, as by mistake.
void Session::CloseAndBringBack() {
  const auto filed = Robot::Lines("Form3", "bindex");
  Robot::CloseWindow("Form3");
  Robot::Click("Form1", "Command3");
  Require(robot_.TakeBoxes().empty(), "Next finds everything in place once more");
  TakePicture("Recovery", QStringLiteral("left"));
  Robot::Click("Recovery", "recoverBring");
  Require(Robot::Lines("Form3", "bindex") == filed, "what was filed is back");
}

void Session::EditEntries() {
  EditEntry(0, [this] {
    TakePicture("Form6", QStringLiteral("entry-opened"));
    PlacePicture(QStringLiteral("Sarv.jpg"));
    HangMedia();
    TakePicture("Form6", QStringLiteral("entry-with-media"));
  });
  EditEntry(1, [this] {
    Robot::Click("Form6", "btn(5)");
    ChoosePictures("Form6", "Command3",
                   {{0, QStringLiteral("گره\u200Cچيني")}, {2, QStringLiteral("خاتم")}, {4, {}}});
    TakePicture("Form6", QStringLiteral("entry-gallery"));
  });
  TakePicture("Form3", QStringLiteral("entries-edited"));
}

// Opens the row, works on it and keeps the changes.
void Session::EditEntry(int row, const std::function<void()>& work) {
  robot_.WhenShown("Form6", [this, work] {
    work();
    Robot::Click("Form6", "btn(4)");
    Require(!form6_.IsLoaded(), "the changes are kept and the entry is closed");
  });
  Robot::ClickLine("Form3", "bindex", row);
  Require(robot_.TakeBoxes().empty(), "nothing is missing in the entry");
}

// In front of the paragraph in the middle of the text.
void Session::PlacePicture(const QString& picture) {
  auto& text = Robot::FindAs<QTextEdit>("Form6", "matn");
  const QTextBlock middle = text.document()->findBlockByNumber(text.document()->blockCount() / 2);
  Robot::Select("Form6", "matn", middle.position(), 0);
  Robot::RightClick("Form6", "matn");
  TakePicture("popM", QStringLiteral("menu"));
  ChooseFile(kPictureFolder, picture);
  Robot::ChooseFromMenu("popM", "picM");
  Require(text.toPlainText().contains(QStringLiteral("{0}")), "the picture has its mark");
}

void Session::HangMedia() {
  ChooseFile({}, QStringLiteral("Kavir.txt"));
  Robot::Click("Form6", "Command5");
  ChooseFile({}, QStringLiteral("MySound1.mp3"));
  Robot::Click("Form6", "Command1");
  ChooseFile(kPictureFolder, QStringLiteral("Parvaz.flv"));
  Robot::Click("Form6", "Command2");
  ChooseFile({}, QStringLiteral("MyBack.jpg"));
  Robot::Click("Form6", "Image1");
}

// Picks a file of the delivered ones, or of a folder in it, when the chooser comes up.
void Session::ChooseFile(const QString& folder, const QString& file) {
  robot_.WhenShown("Form5", [folder, file] {
    Robot::DoubleClickLine("Form5", "Dir1", "Resources");
    if (!folder.isEmpty()) Robot::DoubleClickLine("Form5", "Dir1", folder);
    Robot::ClickLine("Form5", "File1", file);
    Robot::Click("Form5", "btn(0)");
  });
}

// Opens the folder of pictures in the browser of a window, and takes those rows into the gallery.
void Session::ChoosePictures(const QString& window, const QString& chooser,
                             const std::vector<ChosenPicture>& pictures) {
  robot_.WhenShown("Form2", [] {
    Robot::DoubleClickLine("Form2", "Dir1", "Resources");
    Robot::DoubleClickLine("Form2", "Dir1", kPictureFolder);
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click(window, chooser);
  for (const ChosenPicture& picture : pictures) {
    if (!picture.title.isEmpty()) {
      Robot::Type(window, QStringLiteral("IMN(%1)").arg(picture.row), picture.title);
    }
    Robot::Click(window, QStringLiteral("IMC(%1)").arg(picture.row));
  }
}

// A whole collection of pictures.
void Session::MakeGallery(int number) {
  collection_ = number;
  Robot::Click("Form1", "Command3");
  Robot::Type("Form3", "bname", QStringLiteral("نگاره\u200Cها"));
  Robot::Click("Form3", "Com(12)");
  TakePicture("Form3", QStringLiteral("gallery-opened"));
  ChoosePictures("Form3", "Command1",
                 {{0, QStringLiteral("گره\u200Cچيني")},
                  {1, QStringLiteral("حوض")},
                  {2, QStringLiteral("خاتم")},
                  {3, QStringLiteral("خورشيد")},
                  {4, QStringLiteral("لاله\u200Cزار")}});
  TakePicture("Form3", QStringLiteral("gallery-chosen"));
  Robot::PressKey("Form3", "VSC", Qt::Key_PageDown);
  TakePicture("Form3", QStringLiteral("gallery-scrolled"));
  Robot::Click("Form3", "IMC(0)");
  Build([] { Robot::Click("Form3", "Com(13)"); });
}

}  // namespace sample
