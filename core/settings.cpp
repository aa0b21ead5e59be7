#include "core/settings.h"

#include "core/joined.h"

namespace core {

namespace {

using platform::Position;
using platform::Text;
using platform::TextView;

Text OpenTag(TextView tag) { return Joined({u"<", tag, u">"}); }

Text CloseTag(TextView tag) { return Joined({u"</", tag, u">"}); }

Text SettingsLine(TextView tag, TextView value) {
  return Joined({u"\t", OpenTag(tag), value, CloseTag(tag), platform::kCrLf});
}

}  // namespace

Text OptionText(std::int16_t option, const Switches& switches) {
  switch (option) {
    case 0:
      return switches.music ? u"1" : u"0";
    case 1:
      return switches.firstPattern ? u"1" : u"2";
    case 2:
      return switches.print ? u"1" : u"0";
    default:
      return u"0";
  }
}

Text SettingsText(const SettingsValues& values) {
  return Joined({u"<strings>\r\n", SettingsLine(u"aNumber", values.aNumber),
                 SettingsLine(u"bNumber", values.bNumber), SettingsLine(u"cNumber", values.cNumber),
                 SettingsLine(u"Olgoo", values.pattern), SettingsLine(u"Music", values.music),
                 SettingsLine(u"Print", values.print), u"</strings>"});
}

Text TaggedText(TextView text, TextView tag) {
  const Text open = OpenTag(tag);
  const Position at = platform::InStr(text, open);
  if (at == 0) return {};
  const Position start = at + static_cast<Position>(open.size());
  // Without a close tag, or with an earlier one, the length is negative and the cut fails.
  return Text(platform::Mid(text, start, platform::InStr(text, CloseTag(tag)) - start));
}

}  // namespace core
