#include "export/print_page.h"

#include <algorithm>
#include <utility>

namespace exporting {

using platform::Position;
using platform::Replace;
using platform::Text;
using platform::TextView;

namespace {

constexpr TextView kTitlePlace = u"%Title%";
constexpr TextView kBodyPlace = u"%Matn%";
constexpr char16_t kPercent = u'%';

}  // namespace

bool IsPageFile(TextView name) {
  return platform::EqualsIgnoringCase(platform::After(name, u"."), u"htm");
}

Text PrintBody(TextView page) {
  constexpr TextView kTitleEnd = u"</pgTitle>";
  const Position start = platform::InStr(page, kTitleEnd) + static_cast<Position>(kTitleEnd.size());
  Text body = Replace(platform::Mid(page, start), u"<pgMain>", u"<p align=\"right\">");
  body = Replace(body, u"</pgMain>", u"</p>");
  return Replace(body, u"Data/IMG", u"../IMG");
}

PageTemplate::PageTemplate(Text text) : text_(std::move(text)) {
  for (const Text& piece : platform::Split(text_, kTitlePlace)) {
    pieces_.push_back(platform::Split(piece, kBodyPlace));
  }
}

Text PageTemplate::Filled(TextView title, TextView body) const {
  if (!CanJoin(title)) return Replace(Replace(text_, kTitlePlace, title), kBodyPlace, body);
  Text page;
  page.reserve(text_.size() + title.size() + body.size());
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    if (i > 0) page += title;
    for (std::size_t j = 0; j < pieces_[i].size(); ++j) {
      if (j > 0) page += body;
      page += pieces_[i][j];
    }
  }
  return page;
}

// A place for the body can come about only around a title or in it, and it begins and ends with a
// "%": there is none if the title has none and the template has none close in front of a title.
bool PageTemplate::CanJoin(TextView title) const {
  if (title.find(kPercent) != TextView::npos) return false;
  return std::all_of(pieces_.begin(), pieces_.end() - 1, [](const Piece& piece) {
    const Text& last = piece.back();
    return last.find(kPercent, last.size() - std::min(last.size(), kBodyPlace.size())) ==
           Text::npos;
  });
}

}  // namespace exporting
