#include "bench/gallery_rows.h"

#include <unistd.h>

#include <QImage>
#include <QScrollBar>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/desk.h"
#include "bench/process.h"
#include "platform/files/paths.h"
#include "support/window_catalogue.h"

namespace bench {
namespace {

using testing_support::Robot;

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;
constexpr int kScrolledPictures = 2 * support::kPictureCells;
constexpr int kBuiltPictures = 2000;
constexpr std::size_t kPictureBytes = 2 * 1024 * 1024;

std::string PicturePath(const std::string& folder, int number) {
  return folder + "/picture" + std::to_string(10000 + number) + ".jpg";
}

// What a camera gives: smooth fields, edges and a little noise.
QImage Photograph(std::uint32_t seed) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (int y = 0; y < kHeight; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < kWidth; ++x) {
      seed = seed * 1664525U + 1013904223U;
      const int noise = static_cast<int>(seed >> 28U);
      const int field = static_cast<int>(90 + 60 * std::sin(x * 0.004) + 50 * std::cos(y * 0.006));
      const int edge = (x / 97 + y / 61) % 5 == 0 ? 40 : 0;
      line[x] = qRgb(field + noise, field / 2 + edge + noise, 180 - field / 2 + noise);
    }
  }
  return image;
}

std::string MakePhotographs(WorkFolder& work) {
  constexpr int kQuality = 90;
  const std::string folder = work.NewFolder("photographs");
  for (int i = 0; i < kScrolledPictures; ++i) {
    const QString path = QString::fromStdString(PicturePath(folder, i));
    if (!Photograph(static_cast<std::uint32_t>(i + 1)).save(path, "JPG", kQuality)) {
      throw std::runtime_error("no photograph was made");
    }
  }
  return folder;
}

// Gallery mode on that folder.
class GalleryDesk {
 public:
  GalleryDesk(WorkFolder& work, const std::string& folder) : desk_(work.NewFolder("program")) {
    desk_.OpenWorkbench(work.NewFolder("project"));
    Robot::Click("Form3", "Com(12)");
    desk_.form3.SetGalFol(platform::ToolPath(folder), 0);
    Robot::Settle();
  }

  // Five rows on, or back.
  double SecondsOfStep() {
    const auto& bar = Robot::FindAs<QScrollBar>("Form3", "VSC");
    const int key = bar.value() == 1 ? Qt::Key_PageDown : Qt::Key_PageUp;
    return SecondsOf([key] { Robot::PressKey("Form3", "VSC", key); });
  }

 private:
  Desk desk_;
};

double SecondsOfDjpeg(const std::string& folder) {
  return SecondsOf([&] {
    for (int i = 0; i < support::kPictureCells; ++i) {
      SecondsOfRun({"djpeg", "-scale", "1/8", "-outfile", "/dev/null", PicturePath(folder, i)});
    }
  });
}

std::string MakePictures(WorkFolder& work) {
  const std::string folder = work.NewFolder("pictures");
  for (int i = 0; i < kBuiltPictures; ++i) {
    WriteFile(PicturePath(folder, i), std::string(kPictureBytes, static_cast<char>('a' + i % 26)));
  }
  return folder;
}

// Gives back the space of 4 GB, but no names: a work folder keeps those to its end.
void Empty(const std::string& folder) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) std::filesystem::resize_file(entry.path(), 0);
  }
}

// Builds the pictures of a folder as a collection, one project after the other.
class Builder {
 public:
  Builder(WorkFolder& work, std::string pictures)
      : work_(work), desk_(work.NewFolder("program")), pictures_(std::move(pictures)) {}

  double SecondsOfTool() {
    const std::string folder = work_.NewFolder("tool");
    desk_.OpenWorkbench(folder);
    desk_.form3.galleryMode = true;
    const gallery::Slots chosen = desk_.form3.table.galleryPic.Slots();
    for (int i = 0; i < kBuiltPictures; ++i) {
      chosen.paths.Set(i, platform::ToolPath(PicturePath(pictures_, i)));
    }
    ::sync();
    const double seconds = SecondsOf([&] { desk_.form3.MakeFile(); });
    if (desk_.robot.TakeBoxes().size() != 1 || desk_.form3.IsVisible()) {
      throw std::runtime_error("the gallery wasn't built");
    }
    Empty(folder);
    return seconds;
  }

  double SecondsOfCp() {
    const std::string folder = work_.NewFolder("cp");
    ::sync();
    const double seconds = SecondsOfRun({"cp", "-r", pictures_, folder});
    Empty(folder);
    return seconds;
  }

 private:
  WorkFolder& work_;
  Desk desk_;
  std::string pictures_;
};

}  // namespace

Row MeasureScrollStep(const Plan& plan) {
  const std::string folder = MakePhotographs(plan.work);
  GalleryDesk desk(plan.work, folder);
  for (int side = 0; side < 2; ++side) desk.SecondsOfStep();
  SecondsOfDjpeg(folder);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    // There and back, so that each picture is decoded as often as any other.
    measured.tool.push_back((desk.SecondsOfStep() + desk.SecondsOfStep()) / 2);
    measured.beside.push_back(SecondsOfDjpeg(folder));
  }
  return TimedRow("one scroll step over JPEGs of 24 megapixels, five decoded",
                  "djpeg -scale 1/8 on five", measured, {Target::Kind::kAtMost, 0.85});
}

Row MeasureGalleryBuild(const Plan& plan) {
  // More than the host keeps back before it writes, and a disk has good and bad seconds: so there
  // are more pairs than elsewhere, and each of the two goes first in every other one.
  constexpr int kTimesMore = 2;
  Builder builder(plan.work, MakePictures(plan.work));
  builder.SecondsOfTool();
  builder.SecondsOfCp();
  Measured measured;
  for (int round = 0; round < kTimesMore * plan.rounds; ++round) {
    if (round % 2 == 0) measured.tool.push_back(builder.SecondsOfTool());
    measured.beside.push_back(builder.SecondsOfCp());
    if (round % 2 != 0) measured.tool.push_back(builder.SecondsOfTool());
  }
  return TimedRow("building a collection gallery of 2,000 pictures of 2 MB", "cp of the same files",
                  measured, {Target::Kind::kAtMost, 1.05});
}

}  // namespace bench
