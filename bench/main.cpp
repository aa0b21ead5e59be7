// bench_table [--rounds N] [row...]: measures the rows, all of them where none is named, and prints
// them as a table. The exit status is 0 if every target is met, 1 if one is missed, 2 if the bench
// itself fails.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/box_rows.h"
#include "bench/build_rows.h"
#include "bench/editor_rows.h"
#include "bench/export_rows.h"
#include "bench/gallery_rows.h"
#include "bench/long_text_rows.h"
#include "bench/marking_rows.h"
#include "bench/paragraph_rows.h"
#include "bench/process_rows.h"
#include "bench/record_rows.h"
#include "bench/reported.h"
#include "bench/table.h"
#include "bench/text_rows.h"
#include "bench/viewer_rows.h"
#include "bench/viewer_start_row.h"
#include "platform/windows/application.h"

namespace {

constexpr int kFewestRounds = 5;

const std::array<bench::NamedRow, 32> kRows = {
    {{"build", bench::MeasureTextBuild},
     {"build-memory", bench::MeasureTextBuildInMemory, true},
     {"media", bench::MeasureMediaBuild},
     {"mixed", bench::MeasureMixedBuild},
     {"gallery", bench::MeasureGalleryBuild},
     {"export", bench::MeasureExport},
     {"print", bench::MeasurePrintPages},
     {"print-disk", bench::MeasurePrintPagesOnDisk},
     {"print-memory", bench::MeasurePrintPagesInMemoryFiles, true},
     {"rep", bench::MeasureCleanUp},
     {"rebuild", bench::MeasureRebuilding},
     {"rebuild-line", bench::MeasureRebuildingOneLine},
     {"plain", bench::MeasurePlainText},
     {"rtf", bench::MeasureRichText},
     {"f3", bench::MeasureMarking},
     {"entry", bench::MeasureOpeningEntry},
     {"endless-word", bench::MeasureEndlessWord},
     {"formats", bench::MeasureWordOfFormats},
     {"empty", bench::MeasureOpeningEmptyParagraphs},
     {"empty-close", bench::MeasureClosingEmptyParagraphs},
     {"f3-more", bench::MeasureMarkingMore},
     {"record-cost", bench::MeasureRecordCost},
     {"record-size", bench::MeasureRecordSize},
     {"record-by-keys", bench::MeasureRecordByKeys},
     {"record-back", bench::MeasureBringingBack},
     {"scroll", bench::MeasureScrollStep},
     {"start", bench::MeasureStart},
     {"start-offscreen", bench::MeasureStartOffscreen},
     {"memory", bench::MeasureMemory},
     {"viewer-search", bench::MeasureViewerSearch},
     {"viewer-start", bench::MeasureViewerStart},
     {"viewer-many", bench::MeasureViewerManyCollections}}};

struct Order {
  int rounds = kFewestRounds;
  std::vector<const bench::NamedRow*> rows;
};

const bench::NamedRow& RowOf(const std::string& name) {
  const auto row = std::ranges::find(kRows, name, &bench::NamedRow::name);
  if (row != kRows.end()) return *row;
  std::string names;
  for (const bench::NamedRow& each : kRows) names += " " + each.name;
  throw std::runtime_error("no row " + name + "; there are:" + names);
}

Order OrderOf(const std::vector<std::string>& words) {
  Order order;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--rounds") {
      order.rounds = std::max(kFewestRounds, std::stoi(words.at(++i)));
    } else {
      order.rows.push_back(&RowOf(words[i]));
    }
  }
  if (order.rows.empty()) {
    for (const bench::NamedRow& row : kRows) order.rows.push_back(&row);
  }
  return order;
}

// Figures of a machine that had other work say little.
void WarnOfLoad() {
  double load = 0;
  if (::getloadavg(&load, 1) != 1 || load < std::thread::hardware_concurrency() / 2.0) return;
  std::cerr << "The machine is busy (load " << load << "): take the figures with care.\n";
}

int PrintTable(const Order& order, bench::WorkFolder& onDisk) {
  bench::WorkFolder inMemory(bench::kInMemory);
  int status = 0;
  std::cout << bench::TableHead() << std::flush;
  for (const bench::NamedRow* row : order.rows) {
    WarnOfLoad();
    const bench::Row measured = row->measure({row->inMemory ? inMemory : onDisk, order.rounds});
    std::cout << bench::TableLine(measured) << std::flush;
    if (!bench::IsMet(measured)) status = 1;
  }
  return status;
}

// For this process and those that it starts. The toolkit's warnings are of the platform that draws
// in memory, which has no hints and no run-time folder.
void SetUpEnvironment() {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
  ::setenv("QT_LOGGING_RULES", "default.warning=false", 0);
}

}  // namespace

int main(int argc, char** argv) {
  SetUpEnvironment();
  const platform::Application application(argc, argv);
  return bench::Reported([&] {
    const Order order = OrderOf({argv + 1, argv + argc});
    bench::WorkFolder work(bench::kOnDisk);
    // Nothing reaches the user's own folders.
    ::setenv("HOME", work.NewFolder("home").c_str(), 1);
    ::sync();
    return PrintTable(order, work);
  });
}
