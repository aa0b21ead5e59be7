// A file's bytes, wherever they lie: in memory, or behind an open descriptor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace media {

class Source {
 public:
  // Gives the `count` bytes at `at`, or as many as there are.
  using Reader = std::function<std::string(std::uint64_t at, std::size_t count)>;

  Source(std::uint64_t size, Reader reader) : size_(size), reader_(std::move(reader)) {}

  std::uint64_t Size() const { return size_ - start_; }
  // Fewer at the end, none past it.
  std::string Read(std::uint64_t at, std::size_t count) const;
  // The same without what lies before `at`.
  Source From(std::uint64_t at) const;

 private:
  std::uint64_t size_;
  std::uint64_t start_ = 0;
  Reader reader_;
};

// Lasts no longer than the bytes.
Source SourceOf(std::string_view bytes);

}  // namespace media
