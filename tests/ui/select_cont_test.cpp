#include "ui/select_cont.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "core/entry.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/frm_overlay.h"

namespace varnisto::test {
namespace {

TEST(ContestRow, IsGuessedFromThePath) {
  for (const auto& [path, row] : texts_of<2>(
           "/LOGS/ARRL10_2002.ALL|0", "/HARBOUR/CQWW.ALL|3", "/a/iaru/log.all|4", "/WPX/x/LOG.ALL|none",
           "/IA/ARDX.ALL|0", "/LOGS/IARU.ALL|4", "/LOGS/ARIA.ALL|4", "/IA/ARRL.ALL|0", "/l/IA_ARRL10.ALL|4",
           "/LOGS/CQWW.ALL|3", "/LOGS/JIDX_CW.ALL|5", "/LOGS/WPX.ALL|2", "/LOGS/WAE.ALL|6", "/LOGS/10M.ALL|1",
           "/LOGS/IOTA.ALL|7", "/LOGS/UBA.ALL|none")) {
    const auto guess = contest_row_of_path(path);
    EXPECT_EQ(guess ? std::to_string(*guess) : "none", row) << path;
  }
}

/// A log of one QSO that was opened without a dialog; the form is made by the test.
class SelectContTest : public testing::Test {
 protected:
  SelectContTest() {
    test.start();
    work.write_text("log.ALL", "title\n" + all_line({}) + "\n");
    test.open(work.path() + "log.ALL");
    test.desk.forms.clear();
  }
  void forget_guess(select_cont& form) {
    form.List1.selected = -1;
    test.app.state.log.contest.contest_name.clear();
  }
  static void click_option(select_cont& form, const std::string& group, int option) {
    form.find<OptionGroup>(group)->selected = option;
    form.click(group, option);
  }
  static void choose(select_cont& form, int row) {
    form.List1.selected = row;
    form.click("List1", row);
  }
  EntryChoice& entry() { return test.app.state.entry; }

  TestApp test;
  TempDir work;
};

TEST_F(SelectContTest, PresetsFromLogAndMainWindow) {
  entry().op = Operator::multi_two;
  select_cont form{test.app};
  form.Form_Load();
  EXPECT_EQ(form.List1.items.size(), test.app.state.lists.contest_names.size());
  EXPECT_EQ((std::vector{form.Option2.selected, form.Option4.selected, form.Option3.selected,
                         form.Option6.selected, form.Option7.selected, form.Option5.selected}),
            (std::vector{2, 3, 4, 1, 0, 0}));  // a CW log on 7 MHz
  EXPECT_FALSE(form.Check1.enabled);
  EXPECT_FALSE(form.Check1.checked);
  EXPECT_EQ(form.cmdDisp_in.tip, test.app.state.log.input.in_name + " の表示");
}

TEST_F(SelectContTest, TheChoicesWinOverASummaryWhenAsked) {
  work.write_text("log.zsm", "");
  for (const bool wins : {true, false}) {
    test.app.state.settings.select_cont_yusen = Precedence::unset;
    select_cont form{test.app};
    form.Form_Load();
    EXPECT_EQ(form.Option5.selected, 0);
    ASSERT_TRUE(form.Check1.enabled);
    EXPECT_TRUE(form.Check1.checked);
    form.Check1.checked = wins;
    form.click("Check1");
    choose(form, 3);
    form.click("cmdOK");
    const LabelState& labels = test.app.state.log.labels;
    EXPECT_EQ(labels.dialog_wins, wins);
    EXPECT_EQ(contains(labels.category, "CATEGORY: SINGLE-OP "), wins);
    EXPECT_EQ(test.app.state.settings.iota_class, "24-HOURS");
    EXPECT_EQ(test.app.state.settings.select_cont_yusen, wins ? Precedence::dialog : Precedence::summary);
  }
}

TEST_F(SelectContTest, AnOperatorSetsItsValuesAndMovesTheOtherGroups) {
  for (const auto& [option, cat_operator, transmitter, station] :
       texts_of<4>("1|SINGLE-OP|ONE|FIXED", "2|SCHOOL-CLUB|UNLIMITED|SCHOOL", "3|MULTI-OP|ONE|PORTABLE",
                   "5|MULTI-OP|UNLIMITED|PORTABLE", "6|CHECKLOG|UNLIMITED|PORTABLE")) {
    SCOPED_TRACE(option);
    select_cont form{test.app};
    form.Form_Load();
    choose(form, 3);
    click_option(form, "Option7", 3);  // PORTABLE: stays where the operator names no station
    click_option(form, "Option3", std::stoi(option));
    form.click("cmdOK");
    EXPECT_EQ(std::to_string(option_of(entry().op)), option);
    EXPECT_EQ(cat_operator_of(entry()), cat_operator);
    EXPECT_EQ(name_of(entry().transmitter), transmitter);
    EXPECT_EQ(name_of(entry().station), station);
    EXPECT_TRUE(entry().dialog_shown && entry().transmitter_chosen);
  }
}

TEST_F(SelectContTest, OnlyArrlDxTakesThePowerFromTheLog) {
  entry().power = Power::high;
  AllQso qso;
  qso.sent_exch = " 5";
  work.write_text("log.ALL", "title\n" + all_line(qso) + "\n");
  select_cont form{test.app};
  form.Form_Load();
  choose(form, 0);
  EXPECT_EQ(form.Option1.selected, 2);
  EXPECT_EQ(form.lblPower.text, "PWR: 5");
  choose(form, 3);
  EXPECT_EQ(form.Option1.selected, 0);
  click_option(form, "Option1", 1);
  choose(form, 4);
  EXPECT_EQ(form.Option1.selected, 1);
}

TEST_F(SelectContTest, OkAsksForAContestWhenNoneIsKnown) {
  select_cont form{test.app};
  form.Form_Load();
  forget_guess(form);
  form.click("cmdOK");
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_FALSE(entry().dialog_shown);
  EXPECT_FALSE(work.has("log_za2c.zsm"));
}

TEST_F(SelectContTest, TheOverlaysReturnButtonLeadsBack) {
  const auto overlay_answers = [&](const char* button) {
    return [&, button](FormName) {
      frmOVERLAY form{test.app};
      form.Form_Load();
      form.click(button);
    };
  };
  test.desk.on_show = overlay_answers("cmdBack");
  select_cont form{test.app};
  form.Form_Load();
  choose(form, 2);
  form.click("cmdOK");
  EXPECT_FALSE(form.closed);
  EXPECT_FALSE(entry().dialog_shown);
  test.desk.on_show = overlay_answers("cmdOK");
  form.click("cmdOK");
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(test.desk.forms.size(), 2U);
  entry().overlay_cat = "ROOKIE";
  choose(form, 3);
  form.click("cmdOK");
  EXPECT_EQ(entry().overlay_cat, "");
}

}  // namespace
}  // namespace varnisto::test
