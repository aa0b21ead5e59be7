#include "platform/rtf/parser.h"
#include "platform/rtf/rtf.h"
#include "platform/rtf/signature.h"

namespace platform::rtf {
namespace {

class DocumentSink {
 public:
  static constexpr bool kKeepsFormat = true;

  void AddText(TextView text, const CharacterFormat& format) {
    if (!runs_.empty() && runs_.back().format == format) {
      if (Text* const last = std::get_if<Text>(&runs_.back().content)) {
        last->append(text);
        return;
      }
    }
    runs_.push_back({format, Text(text)});
  }
  Picture& AddPicture(const CharacterFormat& format) {
    runs_.push_back({format, Picture{}});
    return std::get<Picture>(runs_.back().content);
  }
  void EndParagraph(Alignment alignment, Direction direction) {
    document_.paragraphs.push_back({alignment, direction, std::exchange(runs_, {})});
  }
  Document Take() { return std::move(document_); }

 private:
  Document document_;
  std::vector<Run> runs_;  // of the paragraph that is still open
};

template <typename Unit>
Document ReadDocument(std::basic_string_view<Unit> rtf) {
  DocumentSink sink;
  Parser<Unit, DocumentSink>(FromSignature(rtf), sink).Run();
  return sink.Take();
}

}  // namespace

Document Read(std::string_view rtf) { return ReadDocument(rtf); }
Document Read(TextView rtf) { return ReadDocument(rtf); }

}  // namespace platform::rtf
