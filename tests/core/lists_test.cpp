#include "core/lists.h"

#include <gtest/gtest.h>

#include "cabrillo/contest.h"
#include "support/errors.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

class Lists : public testing::Test {
 protected:
  Lists() { app.state.program.app_dir = test.folder.path(); }

  /// Error number of reading this text as that list file.
  int read(const std::string& name, const std::string& text, void (*reader)(App&)) {
    test.folder.write_text(name, text);
    return error_of([&] { reader(app); });
  }

  TestApp test;
  App& app = test.app;
};

struct MailCase {
  std::string text;
  int error;
  std::size_t records;
  std::string address;  ///< for "CQ-WW-CW"
};

class MailList : public Lists, public testing::WithParamInterface<MailCase> {};

TEST_P(MailList, HoldsOneRecordALineBreak) {
  EXPECT_EQ(read("e_mail_add.cfg", GetParam().text, read_email_add), GetParam().error);
  EXPECT_EQ(app.state.lists.mail_adds.size(), GetParam().records);
  const MailAddress* hit = find_mail_address(app, "CQ-WW-CW");
  EXPECT_EQ(hit ? hit->address : "(none)", GetParam().address);
}

INSTANTIATE_TEST_SUITE_P(Files, MailList,
                         testing::Values(MailCase{"JIDX,a@x\nCQ-WW,b@x\nCQ,c@x\n", 0, 3, "b@x"},
                                         MailCase{"JIDX,a@x\nCQ,c@x\nCQ-WW,b@x", 0, 2, "c@x"},
                                         MailCase{",all@x\nCQ-WW,b@x\n", 0, 2, "all@x"},
                                         MailCase{"CQ-WW,b@x", 0, 0, "(none)"},
                                         MailCase{"\"CQ-WW\" , b@x \n", 0, 1, "b@x"},
                                         MailCase{"x\nCQ-WW,b@x\n", 62, 1, "(none)"},
                                         MailCase{"", 0, 0, "(none)"}));

struct AssistedCase {
  std::string text;
  int error;
  int flag;  ///< for " CQ-WW-SSB "
};

class AssistedList : public Lists, public testing::WithParamInterface<AssistedCase> {};

TEST_P(AssistedList, FirstEntryOfAContestDecides) {
  EXPECT_EQ(read("category-assisted.txt", GetParam().text, read_category_assisted), GetParam().error);
  app.state.log.contest.contest = "CQ-WW-SSB ";
  EXPECT_EQ(assisted_flag(app), GetParam().flag);
}

INSTANTIATE_TEST_SUITE_P(
    Files, AssistedList,
    testing::Values(AssistedCase{"; only\n;comments\n", 0, 1},
                    AssistedCase{" CQ-WW-SSB ,0\nCQ-WW-SSB,1\n", 0, 0}, AssistedCase{"CQ-WW,0\n", 0, 1},
                    AssistedCase{"\"CQ-WW-SSB\",0\n", 0, 1}, AssistedCase{"CQ-WW-SSB, 0 ", 0, 0},
                    AssistedCase{"CQ-WW-SSB\n", 62, 1}, AssistedCase{"A,1\n\n", 62, 1},
                    AssistedCase{"A,yes\n", 13, 1}, AssistedCase{"A,\n", 13, 1},
                    AssistedCase{"CQ-WW-SSB,0,a, note\n", 0, 0}, AssistedCase{"A,32768\n", 6, 1}));

TEST_F(Lists, ContestNamesAreReadInFileOrderUpToFifty) {
  std::string text;
  for (int i = 0; i < 50; ++i) text += "T" + std::to_string(i) + ",C,N\n";
  EXPECT_EQ(read("contest_name.cfg", text, read_contest_name), 0);
  EXPECT_EQ(app.state.lists.contest_names.size(), 50U);
  EXPECT_EQ(read("contest_name.cfg", text + "T50,C,N\n", read_contest_name), 9);
  EXPECT_EQ(read("contest_name.cfg", "A,B,C\nD,E", read_contest_name), 62);
  EXPECT_EQ(app.state.lists.contest_names.size(), 1U);
}

TEST_F(Lists, AMissingListNamesItsFile) {
  app.state.program.app_dir += "none/";
  for (auto* reader : {read_email_add, read_category_assisted, read_contest_name})
    EXPECT_EQ(error_of([&] { reader(app); }), 53);
}

}  // namespace
}  // namespace varnisto::test
