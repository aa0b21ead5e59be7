#include "workbench/book_formats.h"

#include <vector>

#include "core/joined.h"
#include "platform/failure.h"

namespace workbench {

using core::Joined;
using platform::kCrLf;
using platform::Text;
using platform::TextView;

namespace {

Text Tabs(Depth depth) {
  if (depth < 0) throw platform::Failure(u"Invalid procedure call: depth below 0");
  return Text(static_cast<std::size_t>(depth), u'\t');
}

// Up to the blank, so that aTitle1 isn't found in aTitle10 and either kind of collection is.
TextView Opening(TextView openTag) {
  return platform::Left(openTag, platform::InStr(openTag, u" "));
}

// `head`, then each line of the text as a paragraph of its own.
Text Paragraphs(TextView head, TextView text, TextView tag) {
  const Text open = Joined({u"<", tag, u">"});
  const Text close = Joined({u"</", tag, u">"});
  const Text between = Joined({close, kCrLf, open});
  Text page;
  page.reserve(head.size() + text.size() + text.size() / 4 + 2 * between.size());
  page.append(head).append(open);
  platform::Position from = 1;
  while (const platform::Position end = platform::InStr(text, kCrLf, from)) {
    page.append(platform::Mid(text, from, end - from)).append(between);
    from = end + static_cast<platform::Position>(kCrLf.size());
  }
  return page.append(platform::Mid(text, from)).append(close);
}

TextView Flag(bool on) { return on ? u"1" : u"0"; }

Text MediaStatus(const core::PerMedium<bool>& has) {
  Text status;
  for (const core::MediumRow& each : core::kMedia) {
    if (each.inMediaStatus) status += Flag(has[each.medium]);
  }
  return status;
}

}  // namespace

Vocabulary SplitVocabulary(TextView record) {
  const std::vector<Text> fields = platform::Split(record, u"|");
  if (fields.size() < 8) throw platform::Failure(u"Subscript out of range");
  return {fields[0], fields[1], fields[2], fields[3], fields[4], fields[5], fields[6], fields[7]};
}

Text AddEntr(std::int16_t count, TextView mainTag) {
  const Text line = Joined({u"<", mainTag, u">&nbsp;</", mainTag, u">", kCrLf});
  Text lines(kCrLf);
  if (count > 0) lines.reserve(lines.size() + line.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) lines += line;
  return lines;
}

Text SetMatn(TextView text, TextView mainTag) {
  return Paragraphs(AddEntr(1, mainTag), text, mainTag);
}

Text SetShenas(TextView text, TextView identTag) {
  const Text empty = Joined({u"<", identTag, u"></", identTag, u">", kCrLf});
  return Paragraphs(Joined({empty, empty}), text, identTag);
}

Text PageTitleLine(TextView title, TextView pageTag) {
  return Joined({u"<", pageTag, u">", title, u"</", pageTag, u">", kCrLf});
}

Text IndexHead(TextView creditLine) {
  return Joined({u"<strings>", kCrLf, u"\t", creditLine, kCrLf});
}

Text OpenTag(TextView name, bool gallery) {
  return Joined({u"<", name, gallery ? u" vol=\"pic1\">" : u" vol=\"txt\">"});
}

Text CloseTag(TextView name) { return Joined({u"</", name, u">"}); }

Text IndexLine(TextView openTag, TextView title, TextView closeTag) {
  return Joined({u"\t", openTag, title, closeTag, kCrLf});
}

Text WithoutOldLine(TextView index, TextView openTag, TextView closeTag) {
  const TextView opening = Opening(openTag);
  const platform::Position p = platform::InStr(index, opening);
  const platform::Position q = platform::InStr(index, closeTag);
  if (p == 0 || q == 0) return Text(index);
  const auto after = static_cast<std::size_t>(q) - 1 + closeTag.size();
  return Joined({platform::Left(index, p - 2), index.substr(after)});
}

bool HasTwoLines(TextView index, TextView openTag) {
  const TextView opening = Opening(openTag);
  return platform::InStr(index, opening) != platform::InStrRev(index, opening);
}

Text HeadLines(bool gallery) {
  return Joined({u"<?xml version=\"1.0\"?>", kCrLf, gallery ? u"<gallery>" : u"<Tree>", kCrLf});
}

TextView EndLine(bool gallery) { return gallery ? u"</gallery>\r\n" : u"</Tree>\r\n"; }

Text MainTitleLine(Depth depth, TextView text) {
  return Joined({Tabs(depth), u"<node label=\"", text, u"\">", kCrLf});
}

Text MainEndLine(Depth depth) { return Joined({Tabs(depth), u"</node>", kCrLf}); }

Text PictureLine(Depth depth, TextView title, TextView stem) {
  return Joined(
      {Tabs(depth), u"<img dtl=\"", title, u"\">Data/IMG/", stem, u".jpg", u"</img>", kCrLf});
}

Text NodeLine(Depth depth, const EntryNode& node) {
  return Joined({Tabs(depth), u"<node label=\"", node.title, u"\" src=\"",
                 node.gallery ? u"DATA/_xml/" : u"DATA/TXT/", node.file, u"\" mediaStatus=\"",
                 MediaStatus(node.has), u"\"", node.attachment, node.background, u" pic=\"",
                 Flag(node.gallery), u"\" />", kCrLf});
}

Text sndBin(TextView path) {
  if (path.empty()) return {};
  const TextView extension = platform::DotExtension(path);
  const bool isProgram = platform::LCase(extension) == u".exe";
  return Joined({u" snd=\"", Flag(isProgram), u"\" pas=\"", extension, u"\""});
}

Text PasBin(TextView path, TextView stem) {
  if (path.empty()) return {};
  return Joined({u" bgBackground=\"Data/TXT/", stem, platform::DotExtension(path), u"\""});
}

}  // namespace workbench
