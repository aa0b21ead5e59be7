#include "platform/rtf/parser.h"
#include "platform/rtf/rtf.h"
#include "platform/rtf/signature.h"

namespace platform::rtf {
namespace {

class PlainSink {
 public:
  static constexpr bool kKeepsFormat = false;

  // A Persian letter takes four units of RTF or more, so a third of them seldom falls short.
  explicit PlainSink(std::size_t units) { text_.reserve(units / 3); }

  void AddText(TextView text) { text_.append(text); }
  void DropLastParagraphEnd() { text_.resize(text_.size() - kCrLf.size()); }
  Text Take() { return std::move(text_); }

 private:
  Text text_;
};

template <typename Unit>
Text PlainTextOf(std::basic_string_view<Unit> rtf) {
  PlainSink sink(rtf.size());
  Parser<Unit, PlainSink>(FromSignature(rtf), sink).Run();
  return sink.Take();
}

}  // namespace

Text PlainText(std::string_view rtf) { return PlainTextOf(rtf); }
Text PlainText(TextView rtf) { return PlainTextOf(rtf); }

}  // namespace platform::rtf
