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
  struct Row {
    std::string name, path;
    std::optional<int> row;
  };
  for (const Row& row : rows_of(
           Row{"ar_comes_before_ten_metres", "/LOGS/ARRL10_2002.ALL", 0},
           Row{"the_name_comes_first", "/HARBOUR/CQWW.ALL", 3}, Row{"then_its_folder", "/a/iaru/log.all", 4},
           Row{"no_further_up", "/WPX/x/LOG.ALL", std::nullopt}, Row{"ardx_whatever_else", "/IA/ARDX.ALL", 0},
           Row{"iaru", "/LOGS/IARU.ALL", 4}, Row{"ia_and_ar", "/LOGS/ARIA.ALL", 4},
           Row{"ia_and_arrl_is_arrl", "/IA/ARRL.ALL", 0}, Row{"ia_and_arrl10_is_iaru", "/l/IA_ARRL10.ALL", 4},
           Row{"cq_ww", "/LOGS/CQWW.ALL", 3}, Row{"jidx", "/LOGS/JIDX_CW.ALL", 5},
           Row{"wpx", "/LOGS/WPX.ALL", 2}, Row{"wae", "/LOGS/WAE.ALL", 6},
           Row{"ten_metres", "/LOGS/10M.ALL", 1}, Row{"iota", "/LOGS/IOTA.ALL", 7},
           Row{"nothing", "/LOGS/UBA.ALL", std::nullopt})) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(contest_row_of_path(row.path), row.row);
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
  EXPECT_EQ(form.Option2.selected, 2);  // a CW log
  EXPECT_EQ(form.Option4.selected, 3);  // on 7 MHz
  EXPECT_EQ(form.Option3.selected, 4);
  EXPECT_EQ(form.Option6.selected, 1);
  EXPECT_EQ(form.Option7.selected, 0);
  EXPECT_EQ(form.Option5.selected, 0);
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

struct OperatorCase {
  int option;
  std::string cat_operator, transmitter, station;
};
class OperatorOption : public SelectContTest, public testing::WithParamInterface<OperatorCase> {};
TEST_P(OperatorOption, SetsItsValuesAndMovesTheOtherGroups) {
  select_cont form{test.app};
  form.Form_Load();
  choose(form, 3);
  click_option(form, "Option7", 3);  // PORTABLE: stays where the operator names no station
  click_option(form, "Option3", GetParam().option);
  form.click("cmdOK");
  EXPECT_EQ(option_of(entry().op), GetParam().option);
  EXPECT_EQ(cat_operator_of(entry()), GetParam().cat_operator);
  EXPECT_EQ(name_of(entry().transmitter), GetParam().transmitter);
  EXPECT_EQ(name_of(entry().station), GetParam().station);
  EXPECT_TRUE(entry().dialog_shown && entry().transmitter_chosen);
}
INSTANTIATE_TEST_SUITE_P(Rows, OperatorOption,
                         testing::Values(OperatorCase{1, "SINGLE-OP", "ONE", "FIXED"},
                                         OperatorCase{2, "SCHOOL-CLUB", "UNLIMITED", "SCHOOL"},
                                         OperatorCase{3, "MULTI-OP", "ONE", "PORTABLE"},
                                         OperatorCase{5, "MULTI-OP", "UNLIMITED", "PORTABLE"},
                                         OperatorCase{6, "CHECKLOG", "UNLIMITED", "PORTABLE"}),
                         [](const auto& c) { return "option" + std::to_string(c.param.option); });

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
