#include "app/open_input.h"

#include <gtest/gtest.h>

#include "app/action.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

struct OpenCase {
  std::string name, bytes;
  std::string in_kind, zsm_kind, zsm_use;  ///< zsm_use: name of the summary that is read
  int refused;
  std::string text;  ///< last text of the text box
};

class Open : public testing::TestWithParam<OpenCase> {};

const std::string log_text = "zLog for Windows \r\n" + all_line({}) + "\r\n";
const std::string summary_text = "CQWW DX Contest\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n";

TEST_P(Open, RecognisesTheKind) {
  TestApp test;
  test.start();
  TempDir work;
  work.write("a.zsm", summary_text);
  test.desk.on_show = [&](FormName) { test.app.state.category.dialog_shown = true; };  // confirmed
  const std::string path = work.write(GetParam().name, GetParam().bytes);
  run_action(test.app, [&] { test.open(path); });
  const InputState& input = test.app.state.input;
  EXPECT_EQ(input.in_kind, GetParam().in_kind);
  EXPECT_EQ(input.zsm_kind, GetParam().zsm_kind);
  EXPECT_EQ(input.zsm_use_name, GetParam().zsm_use.empty() ? "" : work.path() + GetParam().zsm_use);
  EXPECT_EQ(input.in_err_flag, GetParam().refused);
  EXPECT_EQ(test.app.main.kaishi.enabled, GetParam().refused == 0);
  EXPECT_EQ(test.desk.texts.empty() ? "" : test.desk.texts.back(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Files, Open,
    testing::Values(
        OpenCase{"a.ALL", log_text, "zlog_all", "zlog_all_zsm1", "a.zsm", 0, ""},
        OpenCase{"b.all", log_text, "zlog_all", "zlog_all_zsm0", "b_za2c.zsm", 0, ""},
        OpenCase{"c.txt", "mon day time\r\n", "", "", "", 1,
                 "Zlogw の txt 形式には未対応です\r\nZlogw の all 形式のﾌｧｲﾙにて実行して下さい。"},
        OpenCase{"c.TXT", "ccc \r\n", "", "", "", 1,
                 "CCC の txt 形式ではありません。\r\n正しい CCC の txt 形式のﾌｧｲﾙにて実行して下さい。"},
        OpenCase{"c.txt", "", "", "", "", 1,
                 "CCC の txt 形式ではありません。\r\n正しい CCC の txt 形式のﾌｧｲﾙにて実行して下さい。"},
        OpenCase{"d.all", "zLog\r\n  \r\n", "zlog_all", "zlog_all_zsm0", "d_za2c.zsm", 1,
                 std::string{no_qso_text}},
        OpenCase{"e.xyz", "", "", "", "", 1,
                 "対応していない形式のファイルです。\r\n*.all , *.zlo , *.txt , *.bin "
                 "のファイルを指定して下さい。"}));

TEST(Open, DerivesEveryName) {
  TestApp test;
  test.start();
  test.app.state.settings.mycall = "QX1ABC/1";
  TempDir work;
  const std::string d = work.path();
  test.open(work.write("contest.ALL", log_text));
  const InputState& input = test.app.state.input;
  const std::pair<std::string, std::string> names[] = {{input.in_file_name, "contest.ALL"},
                                                       {input.in_stem, d + "contest."},
                                                       {input.out_dir, d},
                                                       {input.zsm_name, d + "contest.zsm"},
                                                       {input.za2c_name, d + "contest_za2c.zsm"},
                                                       {input.zsm_send_name, d + "contest_za2c.zsm"},
                                                       {input.z2a_name_all, d + "contest_z2a.all"},
                                                       {input.jarl_name, d + "contest_jarl.txt"},
                                                       {input.cbr_name2, d + "QX1ABC-1.cbr"},
                                                       {input.adi_name, d + "QX1ABC-1.adi"},
                                                       {input.log_name, d + "QX1ABC-1.log"},
                                                       {input.in_name_save, d + "contest.ALL"}};
  for (const auto& [name, expected] : names) EXPECT_EQ(name, expected);
  EXPECT_EQ(test.app.state.contest.select_from, "za2c_zsm");
  EXPECT_EQ(test.desk.forms, std::vector{FormName::select_cont});
}

TEST(Open, ForgetsThePreviousLog) {
  TestApp test;
  test.start();
  TempDir work;
  work.write("a.zsm", summary_text);
  test.open(work.write("a.all", log_text));
  EXPECT_EQ(test.app.state.tally.total_score, 5);
  test.app.state.category.overlay_cat = "ROOKIE";
  test.open(work.write("b.all", log_text));
  EXPECT_EQ(test.app.state.tally.total_score, 0);
  EXPECT_EQ(test.app.state.contest.contest_name + test.app.state.category.overlay_cat, "");
  EXPECT_EQ(test.app.state.category.cat_mode, "MIXED");
}

TEST(Open, CancelKeepsTheNamesAndAsksInTheSettingsFolder) {
  TestApp test;
  test.start();
  TempDir work;
  work.write("a.zsm", summary_text);
  test.open(work.write("a.all", log_text));
  set_in_dir_Open_file(test.app, "　title", "filter|*.all|");
  EXPECT_EQ(test.desk.open_requests.at(0).title, "　logs/　title");
  EXPECT_EQ(test.app.state.input.cbr_name, work.path() + "QX1ABC.cbr");
  EXPECT_EQ(test.app.state.tally.total_score, 5);
}

TEST(Open, TitlesOfTheSummaryCallForDialogs) {
  const std::pair<const char*, std::vector<FormName>> rows[] = {
      {"CQ WPX Contest", {FormName::frmOVERLAY}},
      {"JIDX Contest (JA)", {FormName::select_cont}},
      {"IOTA Contest", {FormName::select_cont}},
      {"CQWW DX Contest", {}}};
  for (const auto& [title, forms] : rows) {
    TestApp test;
    test.start();
    TempDir work;
    work.write("a.zsm", replace_all(summary_text, "CQWW DX Contest", title));
    test.open(work.write("a.all", log_text));
    EXPECT_EQ(test.desk.forms, forms) << title;
    EXPECT_EQ(test.app.main.lblPower.text, contains(title, "JIDX") ? "県No 10" : "");
  }
}

TEST(OpenCbr, CutsTheOutputNameAtTheFirstDot) {
  TestApp test;
  test.start();
  open_chosen_cbr(test.app, "/l.d/QX1ABC.cbr");
  EXPECT_EQ(test.app.state.input.out_name, "/l_c2z.txt");
  EXPECT_EQ(test.desk.texts.back(), " ｚＬｏｇのｔｘｔ \r\n /l_c2z.txt\r\n を作成します");
}

}  // namespace
}  // namespace varnisto::test
