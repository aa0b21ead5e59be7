// The moment where dates begin with the year and digits are Persian: in the region fa_IR, which few
// machines have ready and which is therefore made here.
#include <gtest/gtest.h>
#include <locale.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "tests/support/moment.h"
#include "tests/support/temporary_folder.h"

namespace {

class ClockInIran : public testing::Test {
 protected:
  // Made before the first question, as the regional settings are looked up once.
  static void SetUpTestSuite() {
    const std::string region = "'" + folder_->HostPath("fa_IR.utf8") + "'";
    const std::string log = " >'" + folder_->HostPath("log") + "' 2>&1";
    made_ = std::system(("localedef -i fa_IR -f UTF-8 " + region + log).c_str()) == 0;
    setenv("LOCPATH", folder_->HostPath().c_str(), 1);
    setenv("LC_ALL", "fa_IR.utf8", 1);
  }
  static void TearDownTestSuite() { folder_.reset(); }
  void SetUp() override {
    if (!made_) GTEST_SKIP() << "localedef can't make fa_IR; is the package locales installed?";
  }
  // What the region itself makes of the moment, in its own digits.
  static std::string InTheRegion(const char* format) {
    const locale_t region = newlocale(LC_TIME_MASK, "fa_IR.utf8", nullptr);
    if (region == nullptr) return "no region";
    const locale_t before = uselocale(region);
    std::string said = testing_support::NowAs(format);
    uselocale(before);
    freelocale(region);
    return said;
  }

  static std::unique_ptr<testing_support::TemporaryFolder> folder_;
  static bool made_;
};

std::unique_ptr<testing_support::TemporaryFolder> ClockInIran::folder_ =
    std::make_unique<testing_support::TemporaryFolder>();
bool ClockInIran::made_ = false;

TEST_F(ClockInIran, TheRegionItselfHasDigitsThatNoLogCouldHold) {
  EXPECT_EQ(InTheRegion("%x").find_first_of("0123456789"), std::string::npos);
}

TEST_F(ClockInIran, TheYearComesFirstInDigitsThatTheLogCanHold) {
  const auto [told, expected] =
      testing_support::MomentTold(platform::HostClock(), "%y/%m/%d %H:%M:%S");
  EXPECT_EQ(told, expected);
}

}  // namespace
