// A book's page as an ordinary web page that can be printed.
#pragma once

#include <vector>

#include "platform/text/text.h"

namespace exporting {

// True for the page files of a folder: the extension is "htm" in any letter case; a name without a
// dot counts whole as its extension.
bool IsPageFile(platform::TextView name);

// What stands after the page's title, with paragraphs and picture places as a browser wants them.
// Without a title's end the body starts at the tenth character: print pages have always begun so.
platform::Text PrintBody(platform::TextView page);

// The template of all pages of an export, cut once and not searched for each page: for the bench's
// row "print".
class PageTemplate {
 public:
  explicit PageTemplate(platform::Text text);

  // The template with "%Title%" and then "%Matn%" filled. Nothing is escaped, and a title that
  // holds "%Matn%" is filled with the body too.
  platform::Text Filled(platform::TextView title, platform::TextView body) const;

 private:
  // What stands between two places for the title, cut at the places for the body.
  using Piece = std::vector<platform::Text>;

  [[nodiscard]] bool CanJoin(platform::TextView title) const;

  platform::Text text_;
  std::vector<Piece> pieces_;
};

}  // namespace exporting
