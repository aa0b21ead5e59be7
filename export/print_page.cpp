#include "export/print_page.h"

namespace exporting {

using platform::Position;
using platform::Replace;
using platform::Text;
using platform::TextView;

bool IsPageFile(TextView name) {
  return platform::EqualsIgnoringCase(platform::Behind(name, u"."), u"htm");
}

Text PrintBody(TextView page) {
  constexpr TextView kTitleEnd = u"</pgTitle>";
  const Position start = platform::InStr(page, kTitleEnd) + static_cast<Position>(kTitleEnd.size());
  Text body = Replace(platform::Mid(page, start), u"<pgMain>", u"<p align=\"right\">");
  body = Replace(body, u"</pgMain>", u"</p>");
  return Replace(body, u"Data/IMG", u"../IMG");
}

Text FilledTemplate(TextView pageTemplate, TextView title, TextView body) {
  return Replace(Replace(pageTemplate, u"%Title%", title), u"%Matn%", body);
}

}  // namespace exporting
