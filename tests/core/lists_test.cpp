#include "core/lists.h"

#include <gtest/gtest.h>

#include "cabrillo/contest.h"
#include "support/errors.h"
#include "support/rows.h"
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

TEST_F(Lists, MailAddressesAreOneRecordALineBreak) {
  struct Row {
    std::string text;
    int error;
    std::size_t records;
    std::string address;  ///< for "CQ-WW-CW"
  };
  for (const Row& row :
       rows_of(Row{"JIDX,a@x\nCQ-WW,b@x\nCQ,c@x\n", 0, 3, "b@x"},
               Row{"JIDX,a@x\nCQ,c@x\nCQ-WW,b@x", 0, 2, "c@x"}, Row{",all@x\nCQ-WW,b@x\n", 0, 2, "all@x"},
               Row{"CQ-WW,b@x", 0, 0, "(none)"}, Row{"\"CQ-WW\" , b@x \n", 0, 1, "b@x"},
               Row{"x\nCQ-WW,b@x\n", 62, 1, "(none)"}, Row{"", 0, 0, "(none)"})) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(read("e_mail_add.cfg", row.text, read_email_add), row.error);
    EXPECT_EQ(app.state.lists.mail_adds.size(), row.records);
    const MailAddress* hit = find_mail_address(app, "CQ-WW-CW");
    EXPECT_EQ(hit ? hit->address : "(none)", row.address);
  }
}

TEST_F(Lists, TheFirstAssistedEntryOfAContestDecides) {
  struct Row {
    std::string text;
    int error;
    int flag;  ///< for " CQ-WW-SSB "
  };
  app.state.log.contest.contest = "CQ-WW-SSB ";
  for (const Row& row :
       rows_of(Row{"; only\n;comments\n", 0, 1}, Row{" CQ-WW-SSB ,0\nCQ-WW-SSB,1\n", 0, 0},
               Row{"CQ-WW,0\n", 0, 1}, Row{"\"CQ-WW-SSB\",0\n", 0, 1}, Row{"CQ-WW-SSB, 0 ", 0, 0},
               Row{"CQ-WW-SSB\n", 62, 1}, Row{"A,1\n\n", 62, 1}, Row{"A,yes\n", 13, 1}, Row{"A,\n", 13, 1},
               Row{"CQ-WW-SSB,0,a, note\n", 0, 0}, Row{"A,32768\n", 6, 1})) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(read("category-assisted.txt", row.text, read_category_assisted), row.error);
    EXPECT_EQ(assisted_flag(app), row.flag);
  }
}

TEST_F(Lists, ContestNamesAreReadInFileOrderUpToFifty) {
  std::string text;
  for (int i = 0; i < 50; ++i) text += "T" + std::to_string(i) + ",C,N\n";
  EXPECT_EQ(read("contest_name.cfg", text, read_contest_name), 0);
  EXPECT_EQ(app.state.lists.contest_names.size(), 50U);
  EXPECT_EQ(read("contest_name.cfg", text + "T50,C,N\n", read_contest_name), 9);
  EXPECT_EQ(read("contest_name.cfg", "A,B,C\nD,E", read_contest_name), 62);
  EXPECT_EQ(app.state.lists.contest_names.size(), 1U);
}

}  // namespace
}  // namespace varnisto::test
