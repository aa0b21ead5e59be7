// bench_rules: the plain rules by size, with Google Benchmark. Each is linear in its input; see the
// lines that end in BigO.
#include <benchmark/benchmark.h>

#include "bench/texts.h"
#include "platform/rtf/rtf.h"
#include "workbench/book_formats.h"
#include "workbench/clean_up.h"
#include "workbench/inline_images.h"

namespace {

using platform::Text;

constexpr std::int64_t kSmallest = 1 << 12;
constexpr std::int64_t kLargest = 1 << 24;
constexpr std::int16_t kMarks = 20;

std::size_t SizeOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

// What was worked on, for the rate and for the growth.
void Report(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.SetComplexityN(state.range(0));
}

void Rep(benchmark::State& state) {
  const Text text = bench::RawText(SizeOf(state));
  for (auto _ : state) {
    state.PauseTiming();
    Text own = text;
    state.ResumeTiming();
    benchmark::DoNotOptimize(workbench::Rep(std::move(own)));
  }
  Report(state, text.size() * sizeof(char16_t));
}

void RemCrLf(benchmark::State& state) {
  const Text text = bench::CleanText(SizeOf(state));
  for (auto _ : state) benchmark::DoNotOptimize(workbench::RemCrLf(text));
  Report(state, text.size() * sizeof(char16_t));
}

// A text without a blank is looked through to its end.
void BeBor(benchmark::State& state) {
  const Text text(SizeOf(state), u'\u0628');
  for (auto _ : state) benchmark::DoNotOptimize(workbench::BeBor(text, 70));
  Report(state, text.size() * sizeof(char16_t));
}

void PlainText(benchmark::State& state, bench::Spelling spelling) {
  const std::string rtf = bench::RichText(SizeOf(state), spelling);
  for (auto _ : state) benchmark::DoNotOptimize(platform::rtf::PlainText(rtf));
  Report(state, rtf.size());
}

void RtfRead(benchmark::State& state) {
  const std::string rtf = bench::RichText(SizeOf(state));
  for (auto _ : state) benchmark::DoNotOptimize(platform::rtf::Read(rtf));
  Report(state, rtf.size());
}

void RtfWrite(benchmark::State& state) {
  const platform::rtf::Document document = platform::rtf::Read(bench::RichText(SizeOf(state)));
  const std::size_t written = platform::rtf::Write(document).size();
  for (auto _ : state) benchmark::DoNotOptimize(platform::rtf::Write(document));
  Report(state, written);
}

// A page with a picture's mark in each of its first paragraphs.
Text TextWithMarks(std::size_t characters) {
  Text text = bench::CleanText(characters);
  for (std::int16_t mark = 0; mark < kMarks; ++mark) {
    Text line = platform::FromNumber(mark);
    line.insert(0, u" {").append(u"}").append(platform::kCrLf);
    text.insert(0, line);
  }
  return text;
}

void SetMatnToIMG(benchmark::State& state) {
  const Text text = TextWithMarks(SizeOf(state));
  platform::Column<Text> images;
  for (std::int16_t mark = 0; mark < kMarks; ++mark) images.Set(mark, u"C:\\pictures\\one.jpg");
  for (auto _ : state) {
    Text page = workbench::SetMatn(text, u"pgMain");
    static_cast<void>(
        workbench::PutImageTags(page, images, [](const Text&, platform::TextView) {}));
    benchmark::DoNotOptimize(page);
  }
  Report(state, text.size() * sizeof(char16_t));
}

void Sizes(benchmark::internal::Benchmark* rule) {
  rule->RangeMultiplier(8)->Range(kSmallest, kLargest)->Complexity(benchmark::oN);
}

BENCHMARK(Rep)->Apply(Sizes);
BENCHMARK(RemCrLf)->Apply(Sizes);
BENCHMARK(BeBor)->Apply(Sizes);
BENCHMARK_CAPTURE(PlainText, units, bench::Spelling::kUnits)->Apply(Sizes);
BENCHMARK_CAPTURE(PlainText, bytes, bench::Spelling::kBytes)->Apply(Sizes);
BENCHMARK_CAPTURE(PlainText, mixed, bench::Spelling::kMixed)->Apply(Sizes);
BENCHMARK(RtfRead)->Apply(Sizes);
BENCHMARK(RtfWrite)->Apply(Sizes);
BENCHMARK(SetMatnToIMG)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
