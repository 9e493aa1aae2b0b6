#include "mail/send_add.h"

#include <gtest/gtest.h>

#include "core/lists.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(SendAdd, MakesSubjectAndTextForAKnownAddress) {
  for (const auto& [like_cbr, contest, subject, blanks] : texts_of<4>(
           "1|CQ-WW-SSB|QX1ABC CQ-WW SINGLE-OP ALL LOW 2025|                  SINGLE-OP  ALL LOW",
           "0|CQ-WW-CW|QX1ABC CQ-WW Single-op All Band CW 2025|                   Single-op All Band  CW",
           "1|CQ-WW-RTTY|QX1ABC CQ-WW SINGLE-OP ALL LOW 2025|                  SINGLE-OP  ALL LOW",
           "0|CQ-WW-PH|QX1ABC CQ-WW Single-op All Band CW 2025|                   Single-op All Band  CW",
           "1|IOTA|QX1ABC IOTA SINGLE-OP ALL LOW 2025|")) {
    SCOPED_TRACE(contest);
    StartedApp test;
    State& state = test.app.state;
    test.folder.write_text("e_mail_add.cfg", "CQ-WW,ww@a.example\n");
    read_email_add(test.app);
    state.settings.mycall = " QX1ABC ";
    state.settings.e_mail_subject_flag = like_cbr == "1";
    state.log.contest.contest = contest;
    state.log.category.cat_summary = "SINGLE-OP  ALL LOW";
    state.log.category.cat_text = "Single-op All Band  CW";
    state.log.input.out_name = "/l/QX1ABC.cbr";
    state.display.text = "earlier";
    send_add(test.app);
    EXPECT_EQ(state.log.mail.mail_subject, subject);
    EXPECT_EQ(state.log.mail.send_to_add, blanks.empty() ? "" : "ww@a.example");
    EXPECT_EQ(state.display.text, blanks.empty()
                                      ? ""
                                      : " E-mail subject : QX1ABC CQ-WW\r\n" + blanks +
                                            " 2025\r\n send e-mail to : ww@a.example\r\n /l/QX1ABC.cbr");
  }
}

}  // namespace
}  // namespace varnisto::test
