// The session of an editor who makes the sample book, in the real windows.
#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <vector>

#include "core/machine.h"
#include "core/project_window.h"
#include "editor/paragraph_window.h"
#include "export/export_pass.h"
#include "platform/random.h"
#include "support/help_window.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/recorded_launcher.h"
#include "tests/support/robot.h"
#include "tools/sample_session/passages.h"
#include "tools/sample_session/standing_records.h"
#include "workbench/format_window.h"

namespace sample {

// A picture of a browser, by the row in which it is shown, and the title typed for it.
struct ChosenPicture {
  int row;
  QString title;
};

class Session {
 public:
  // Works in `output`: `program` there gets the delivered files and the project folder `Data`,
  // `pictures` a PNG of each window at each step.
  Session(const std::filesystem::path& resources, std::filesystem::path output);

  // Throws std::runtime_error at the first thing that is not as it should be.
  void Run();

  // Called with the text of each box before it is answered.
  std::function<void(const std::string& text)> atBox;

  int PicturesTaken() const { return pictures_; }

 private:
  void LookAtProject();
  void LookAtHelp();
  void LookAtChoosers();
  void MakeCollection(int number, const QString& book);
  void OpenBook(const QString& book);
  void FileTitle(const Reading& reading);
  void FilePassage(const Passage& passage);
  void FilePassages(const Reading& reading);
  void TryRebuilding(const QString& book);
  void CloseAndBringBack();
  void EditEntries();
  void EditEntry(int row, const std::function<void()>& work);
  void PlacePicture(const QString& picture);
  void HangMedia();
  void ChooseFile(const QString& folder, const QString& file);
  void ChoosePictures(const QString& window, const QString& chooser,
                      const std::vector<ChosenPicture>& pictures);
  void MakeGallery(int number);
  void Build(const std::function<void()>& start);
  void Export(int number, const QString& layout);
  void LookAtBook(const QString& root, const QString& layout);

  void MarkWith(int functionKey, const QString& text);
  void TakePicture(const QString& window, const QString& step);
  void Save(QWidget& widget, const QString& step);
  void Require(bool holds, const QString& what) const;
  bool IsFirst() const { return collection_ == 1; }

  std::filesystem::path output_;
  testing_support::Robot robot_;
  testing_support::FixedClock clock_;
  platform::Random random_;
  StandingRecords records_;
  core::Machine machine_;
  core::Form1 form1_;
  workbench::Form3 form3_;
  editor::Form6 form6_;
  support::Form4 form4_;
  testing_support::RecordedLauncher launcher_;
  exporting::ExportPass exportPass_;
  int collection_ = 0;
  int pictures_ = 0;
};

}  // namespace sample
