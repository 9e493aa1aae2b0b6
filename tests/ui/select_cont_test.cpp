#include "ui/select_cont.h"

#include <gtest/gtest.h>

#include "base/text.h"
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
  void forget_guess(SelectCont& form) {
    form.List1.selected = -1;
    test.app.state.contest.contest_name.clear();
  }
  static void click_option(SelectCont& form, const std::string& group, int option) {
    form.find<OptionGroup>(group)->selected = option;
    form.click(group, option);
  }
  static void choose(SelectCont& form, int row) {
    form.List1.selected = row;
    form.click("List1", row);
  }
  CategoryState& category() { return test.app.state.category; }

  TestApp test;
  TempDir work;
};

TEST_F(SelectContTest, PresetsFromLogAndMainWindow) {
  test.app.main.Option1.selected = 0;
  test.app.main.Option3.selected = 4;
  test.app.state.settings.select_cont_yusen = "1";
  SelectCont form{test.app};
  EXPECT_EQ(form.List1.items.size(), test.app.state.contest.contest_names.size());
  EXPECT_EQ(form.Option2.selected, 2);  // a CW log
  EXPECT_EQ(form.Option4.selected, 3);  // on 7 MHz
  EXPECT_EQ(form.Option3.selected, 4);
  EXPECT_EQ(form.Option6.selected, 1);
  EXPECT_EQ(form.Option7.selected, 0);
  EXPECT_EQ(form.Option5.selected, 0);
  EXPECT_FALSE(form.Check1.enabled);
  EXPECT_FALSE(form.Check1.checked);
  EXPECT_EQ(test.app.state.settings.select_cont_yusen, "0");
  EXPECT_EQ(form.cmdDisp_in.tip, test.app.state.input.in_name + " の表示");
}

TEST_F(SelectContTest, TheChoicesWinOverASummaryWhenAsked) {
  work.write_text("log.zsm", "");
  test.app.state.settings.select_cont_yusen = test.app.state.settings.iota_class = "";
  for (const bool wins : {true, false}) {
    SelectCont form{test.app};
    EXPECT_EQ(test.app.state.settings.iota_class, "24-HOURS");
    ASSERT_TRUE(form.Check1.enabled);
    EXPECT_TRUE(form.Check1.checked);
    form.Check1.checked = wins;
    form.click("Check1");
    choose(form, 3);
    form.click("cmdOK");
    EXPECT_EQ(test.app.main.lblYusen.text, wins ? "設定優先" : "");
    EXPECT_EQ(contains(test.app.main.lblCategory.text, "CATEGORY: SINGLE-OP "), wins);
  }
}

struct OperatorCase {
  int option;
  std::string op, text, cat_operator, transmitter, station;
};
class OperatorOption : public SelectContTest, public testing::WithParamInterface<OperatorCase> {};
TEST_P(OperatorOption, SetsItsValuesAndMovesTheOtherGroups) {
  SelectCont form{test.app};
  choose(form, 3);
  click_option(form, "Option7", 3);  // PORTABLE: stays where the operator names no station
  click_option(form, "Option3", GetParam().option);
  form.click("cmdOK");
  EXPECT_EQ(category().operator_cat, GetParam().op);
  EXPECT_EQ(category().zsm_operator, GetParam().text);
  EXPECT_EQ(category().cat_operator, GetParam().cat_operator);
  EXPECT_EQ(category().cat_transmitter, GetParam().transmitter);
  EXPECT_EQ(category().cat_station, GetParam().station);
  EXPECT_EQ(test.app.main.Option3.selected, GetParam().option);
  EXPECT_TRUE(category().dialog_shown && category().transmitter_chosen);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, OperatorOption,
    testing::Values(OperatorCase{1, "SINGLE-OP-ASSISTED", "Single-op-Assisted", "SINGLE-OP", "ONE", "FIXED"},
                    OperatorCase{2, "SCHOOL-CLUB", "School-Club", "SCHOOL-CLUB", "UNLIMITED", "SCHOOL"},
                    OperatorCase{3, "MULTI-ONE", "Multi-One", "MULTI-OP", "ONE", "PORTABLE"},
                    OperatorCase{5, "MULTI-MULTI", "Multi-Multi", "MULTI-OP", "UNLIMITED", "PORTABLE"},
                    OperatorCase{6, "CHECKLOG", "CheckLog", "CHECKLOG", "UNLIMITED", "PORTABLE"}),
    [](const auto& c) { return "option" + std::to_string(c.param.option); });

TEST_F(SelectContTest, OnlyArrlDxTakesThePowerFromTheLog) {
  test.app.main.Option1.selected = 0;
  AllQso qso;
  qso.sent_exch = " 5";
  work.write_text("log.ALL", "title\n" + all_line(qso) + "\n");
  SelectCont form{test.app};
  choose(form, 0);
  EXPECT_EQ(form.Option1.selected, 2);
  EXPECT_EQ(form.lblPower.text, "PWR: 5");
  choose(form, 3);
  EXPECT_EQ(form.Option1.selected, 0);
  EXPECT_EQ(category().cat_power, "HIGH");
  click_option(form, "Option1", 1);
  choose(form, 4);
  EXPECT_EQ(form.Option1.selected, 1);
}

TEST_F(SelectContTest, OkAsksForAContestWhenNoneIsKnown) {
  SelectCont form{test.app};
  forget_guess(form);
  form.click("cmdOK");
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_FALSE(category().dialog_shown);
  EXPECT_FALSE(work.has("log_za2c.zsm"));
}

TEST_F(SelectContTest, TheOverlaysReturnButtonLeadsBack) {
  test.desk.on_show = [&](FormName) { FrmOverlay{test.app}.click("cmdBack"); };
  SelectCont form{test.app};
  choose(form, 2);
  form.click("cmdOK");
  EXPECT_FALSE(form.closed);
  test.desk.on_show = [&](FormName) { FrmOverlay{test.app}.click("cmdOK"); };
  form.click("cmdOK");
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(test.desk.forms.size(), 2U);
  category().overlay_cat = test.app.main.Label2.text = "ROOKIE";
  choose(form, 3);
  form.click("cmdOK");
  EXPECT_EQ(category().overlay_cat + test.app.main.Label2.text, "");
}

}  // namespace
}  // namespace varnisto::test
