// Which words the reader knows, by what becomes of the text beside them.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/rtf/rtf.h"
#include "rtf_testing.h"

namespace platform::rtf {
namespace {

// RTF 1.9.1, Appendix B: destinations whose text isn't the body's.
constexpr const char* kHiding =
    "aftncn aftnsep aftnsepc annotation atnauthor atndate atnid atnref background bkmkend "
    "bkmkstart blipuid colorschememapping datafield datastore do docvar falt filetbl "
    "footer footerf footerl footerr footnote formfield ftncn ftnsep ftnsepc generator "
    "header headerf headerl headerr info latentstyles listoverridetable listtable "
    "nextfile nonesttables objclass objdata objname panose pgdsctbl picprop pntxta pntxtb "
    "private revtbl rsidtbl rxe shprslt stylesheet tc tcn template themedata txe "
    "userprops xe xmlnstbl";

// Formats and properties: "\\*" before one hides nothing, nor before an underline.
constexpr const char* kFormats =
    "plain pard f af fs afs ab ai cf cb chcbpat highlight b i strike striked ulnone "
    "ltrch rtlch loch hich dbch ql qr qc qj qd rtlpar ltrpar field fldrslt listtext "
    "pntext nesttableprops s cs ds ts accnone acccomma acccircle accdot accunderdot "
    "animtext caps cchs cgrid charrsid charscalex chbrdr chcfpat chshdng crauth crdate "
    "delrsid dn embo expnd expndtw fcs fittext hres impr insrsid kerning lang langfe "
    "langfenp langnp noproof nosectexpand nosupersub outl revauth revauthdel revdttm "
    "revdttmdel revised scaps shad sub super ulc up webhidden acaps acf adn aexpnd alang "
    "aoutl ascaps ashad astrike aul auld auldb aulnone aulw aup fi li ri lin rin cufi "
    "culi curi sb sa sbauto saauto sl slmult widctlpar nowidctlpar nowwrap keep keepn "
    "pagebb hyphpar noline level outlinelevel contextualspace intbl itap tx tqr tqc tqdec "
    "tb tldot ilvl ls pnlvl pnlvlblt pnlvlbody pnlvlcont aspalpha aspnum faauto fahang "
    "facenter faroman favar fafixed adjustright pararsid tblrsid sectrsid trowd trql trqr "
    "trqc cellx irow irowband lastrow ltrrow rtlrow brdrt brdrb brdrl brdrr brdrs brdrw "
    "brdrcf brsp box chftn chpgn chdate chtime chatn ltrdoc rtldoc ltrsect rtlsect sectd "
    "deflang deflangfe deftab viewkind";

constexpr const char* kUnderlines =
    "ul uld uldash uldashd uldashdd uldb ulhwave ulldash ulth ulthd ulthdash ulthdashd "
    "ulthdashdd ulthldash ululdbwave ulw ulwave";

std::vector<std::string> WordsIn(const std::string& list) {
  std::istringstream stream(list);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

Text Plain(const std::string& body) { return PlainText(Rich(body)); }

TEST(RtfWords, ADestinationThatIsNoneOfTheBodyHidesItsText) {
  for (const std::string& word : WordsIn(kHiding)) {
    EXPECT_EQ(Plain("a{\\" + word + " x}b"), u"ab") << word;
  }
}

TEST(RtfWords, NoFormatAfterAStarHidesItsGroup) {
  for (const std::string& word : WordsIn(std::string(kFormats) + " " + kUnderlines)) {
    EXPECT_EQ(Plain("a{\\*\\" + word + " x}b"), u"axb") << word;
  }
}

TEST(RtfWords, EveryUnderlineUnderlines) {
  for (const std::string& word : WordsIn(kUnderlines)) {
    std::string body = "\\" + word;
    body.append(" x\\").append(word).append("0 y");
    const Document document = Read(Rich(body));
    const auto& runs = document.paragraphs.at(0).runs;
    ASSERT_EQ(runs.size(), 2U) << word;
    EXPECT_TRUE(runs[0].format.underline) << word;
    EXPECT_FALSE(runs[1].format.underline) << word;
  }
}

TEST(RtfWords, ACharacterHasAWordOfItsOwn) {
  const std::vector<std::pair<const char*, TextView>> characters = {
      {"tab", u"\t"},           {"cell", u"\t"},          {"nestcell", u"\t"},
      {"par", u"\r\n"},         {"row", u"\r\n"},         {"nestrow", u"\r\n"},
      {"line", u"\r\n"},        {"emdash", u"\u2014"},    {"endash", u"\u2013"},
      {"emspace", u"\u2003"},   {"enspace", u"\u2002"},   {"qmspace", u"\u2005"},
      {"bullet", u"\u2022"},    {"lquote", u"\u2018"},    {"rquote", u"\u2019"},
      {"ldblquote", u"\u201C"}, {"rdblquote", u"\u201D"}, {"zwj", u"\u200D"},
      {"zwnj", u"\u200C"},      {"zwbo", u"\u200B"},      {"zwnbo", u"\u2060"},
      {"ltrmark", u"\u200E"},   {"rtlmark", u"\u200F"},
  };
  for (const auto& [word, character] : characters) {
    EXPECT_EQ(Plain(std::string("a\\") + word + " b"), u"a" + Text(character) + u"b") << word;
  }
}

}  // namespace
}  // namespace platform::rtf
