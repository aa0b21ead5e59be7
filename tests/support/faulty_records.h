// A folder of records whose k-th operation fails, and whose clocks are the test's own.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/files/record_folder.h"

namespace testing_support {

// Must outlive the files that it gave.
class FaultyRecords : public platform::RecordFolder {
 public:
  explicit FaultyRecords(platform::RecordFolder& real) : real_(real) {}

  // Counts anew; the k-th operation from here on fails, counted from 1; 0: none.
  void FailAt(std::size_t k) {
    failing_ = k;
    names_.clear();
  }
  std::size_t Operations() const { return names_.size(); }
  const std::vector<std::string>& Names() const { return names_; }
  // Seconds that the clock has been moved by.
  std::int64_t clockMoved = 0;
  // That have passed besides those of the host.
  std::chrono::milliseconds waited{0};
  // That each record is longer than it is.
  std::uint64_t sizeAdded = 0;
  // The most that was asked for at a time.
  std::size_t MostRead() const { return mostRead_; }

  std::vector<platform::FoundRecord> List() override {
    Count("List");
    return real_.List();
  }
  std::unique_ptr<platform::RecordFile> Take(platform::TextView name) override {
    Count("Take");
    return Wrapped(real_.Take(name));
  }
  std::unique_ptr<platform::RecordFile> Make(platform::TextView beginning) override {
    Count("Make");
    return Wrapped(real_.Make(beginning));
  }
  std::int64_t Now() override { return real_.Now() + clockMoved; }
  std::chrono::milliseconds Uptime() override { return real_.Uptime() + waited; }

 private:
  class File : public platform::RecordFile {
   public:
    File(FaultyRecords& owner, std::unique_ptr<platform::RecordFile> real)
        : owner_(owner), real_(std::move(real)) {}

    std::uint64_t Size() override { return real_->Size() + owner_.sizeAdded; }
    std::string Read(std::size_t most) override {
      owner_.Count("Read");
      owner_.mostRead_ = std::max(owner_.mostRead_, most);
      return real_->Read(most);
    }
    void Append(std::string_view bytes) override {
      owner_.Count("Append");
      real_->Append(bytes);
    }
    void Replace(const std::function<void(const Sink&)>& write) override {
      owner_.Count("Replace");
      real_->Replace(write);
    }
    void Sync() override {
      owner_.Count("Sync");
      real_->Sync();
    }
    void Rename(platform::TextView beginning) override {
      owner_.Count("Rename");
      real_->Rename(beginning);
    }
    void Remove() override {
      owner_.Count("Remove");
      real_->Remove();
    }

   private:
    FaultyRecords& owner_;
    std::unique_ptr<platform::RecordFile> real_;
  };

  std::unique_ptr<platform::RecordFile> Wrapped(std::unique_ptr<platform::RecordFile> file) {
    if (file == nullptr) return nullptr;
    return std::make_unique<File>(*this, std::move(file));
  }

  void Count(const char* operation) {
    names_.emplace_back(operation);
    if (names_.size() == failing_) {
      throw platform::Failure(u"Made to fail: " + platform::FromUtf8(operation));
    }
  }

  platform::RecordFolder& real_;
  std::size_t failing_ = 0;
  std::size_t mostRead_ = 0;
  std::vector<std::string> names_;
};

}  // namespace testing_support
