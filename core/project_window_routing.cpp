// The choosers: who asks for what, and where the answer goes.
#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/project_window.h"

namespace core {

using platform::Text;
using platform::TextView;

namespace {

constexpr TextView kPictures = u"*.jpg";
constexpr TextView kMusic = u"*.mp3";

}  // namespace

void Form1::RequestFolder(TextView key, Window* owner) {
  pendingTarget = key;
  folderChooser_.PointAt(machine_.programFolder);
  folderChooser_.ShowModal(owner);
}

void Form1::RequestFile(TextView key, TextView pattern, Window* owner) {
  pendingTarget = key;
  fileChooser_.PointAt(machine_.programFolder, pattern);
  fileChooser_.ShowModal(owner);
}

void Form1::Command1_Click() {
  Catching(failure::kPickExportFolder, [&] { RequestFolder(u"ExBox", this); });
}

void Form1::Command2_Click() {
  Catching(failure::kPickProjectFolder, [&] { RequestFolder(u"idir", this); });
}

void Form1::Command5_Click() {
  Catching(failure::kPickCollectionPicture, [&] { RequestFile(u"Command5", kPictures, this); });
}

void Form1::Command6_Click() {
  Catching(failure::kPickFirstMusic, [&] { RequestFile(u"Command6", kMusic, this); });
}

void Form1::Command7_Click() {
  Catching(failure::kPickSecondMusic, [&] { RequestFile(u"Command7", kMusic, this); });
}

void Form1::Command8_Click() {
  Catching(failure::kPickBackground, [&] { RequestFile(u"Command8", kPictures, this); });
}

void Form1::Command9_Click() {
  Catching(failure::kPickInputFolder, [&] { RequestFolder(u"Command9", this); });
}

struct Form1::Route {
  TextView key;
  void (*act)(Form1&);

  static void SetMusic(Form1& form, platform::TextBox& field) {
    if (form.bMus(0).Value()) field.SetText(form.fileChooser_.File());
  }
  static void SetGallery(Form1& form, int which) {
    if (form.ports_.workbench == nullptr) return;
    form.ports_.workbench->RemFol(which);
    form.ports_.workbench->SetGalFol(form.folderChooser_.Folder(), which);
  }
  static void SetMedium(Form1& form, Medium medium) {
    if (form.ports_.paragraph == nullptr) return;
    form.ports_.paragraph->SetMedium(medium, form.fileChooser_.File());
  }
  static void SetImage(Form1& form) {
    if (form.ports_.workbench == nullptr) return;
    form.ports_.workbench->SetChosenImage(form.fileChooser_.File());
  }

  static constexpr auto Table() {
    return std::to_array<Route>({
        {u"idir", [](Form1& form) { form.idir.SetText(form.folderChooser_.Folder()); }},
        {u"Command5", [](Form1& form) { form.index.SetText(form.fileChooser_.File()); }},
        {u"Command6", [](Form1& form) { SetMusic(form, form.Mus1); }},
        {u"Command7", [](Form1& form) { SetMusic(form, form.Mus2); }},
        {u"Command8", [](Form1& form) { form.Back.SetText(form.fileChooser_.File()); }},
        {u"Command9", [](Form1& form) { form.Text1.SetText(form.folderChooser_.Folder()); }},
        {u"IMG", [](Form1& form) { SetImage(form); }},
        {u"ExBox", [](Form1& form) { form.ExBox.SetText(form.folderChooser_.Folder()); }},
        {u"FolPath", [](Form1& form) { SetGallery(form, 0); }},
        {u"FolPath2", [](Form1& form) { SetGallery(form, 1); }},
    });
  }
};

void Form1::upd() {
  Catching(failure::kRouteChoice, [&] {
    const Text target = pendingTarget;
    const auto routes = Route::Table();
    const auto route = std::ranges::find(routes, target, &Route::key);
    if (route != routes.end()) return route->act(*this);
    const auto* const medium = std::ranges::find(kMedia, target, &MediumRow::chooserKey);
    if (medium != kMedia.end()) Route::SetMedium(*this, medium->medium);
  });
}

}  // namespace core
