#include "bench/print_watch.h"

#include <string_view>
#include <utility>

namespace bench {

using platform::Text;
using platform::TextView;

namespace {

class PageInMemory : public platform::OpenedFile {
 public:
  explicit PageInMemory(const std::string& bytes) : bytes_(bytes) {}

  std::string ReadAll() override { return bytes_; }
  void Write(std::string_view) override {}
  void Close() override {}

 private:
  const std::string& bytes_;
};

}  // namespace

double PrintWatch::Seconds() const { return std::chrono::duration<double>(end_ - begin_).count(); }

void PrintWatch::KeepPagesInMemory(std::size_t count, std::vector<std::string> pages) {
  count_ = count;
  pages_ = std::move(pages);
}

std::unique_ptr<platform::OpenedFile> PrintWatch::Open(TextView path, platform::OpenMode mode,
                                                       bool create) {
  if (path.ends_with(u"\\Default.html")) begin_ = Clock::now();
  if (path.ends_with(u"\\ZVL.txt") && IsPrinting()) end_ = Clock::now();
  if (count_ == 0 || !IsPrinting() || path.ends_with(u"\\Default.html")) {
    return host_.Open(path, mode, create);
  }
  if (mode == platform::OpenMode::kRead) ++next_;
  return std::make_unique<PageInMemory>(pages_[next_ % pages_.size()]);
}

std::vector<Text> PrintWatch::FileNames(TextView folder) {
  if (count_ == 0 || !IsPrinting()) return host_.FileNames(folder);
  std::vector<Text> names;
  names.reserve(count_);
  for (std::size_t i = 0; i < count_; ++i) {
    names.push_back(u"PAGE" + platform::FromNumber(static_cast<std::int64_t>(100'000 + i)) +
                    u".htm");
  }
  return names;
}

}  // namespace bench
