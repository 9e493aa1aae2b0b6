#include "app/open_input.h"

#include <gtest/gtest.h>

#include "app/action.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

const std::string log_text = "zLog for Windows \r\n" + all_line({}) + "\r\n";
const std::string summary_text = "CQWW DX Contest\r\nCategory: Single-op 7 MHz CW\r\nTotal score : 5\r\n";

TEST(Open, RecognisesTheKind) {
  struct Row {
    std::string name, bytes;
    InputKind in_kind;
    std::string zsm_use;  ///< name of the summary that is read
    std::string refusal;  ///< last text of the text box
  };
  const std::string no_ccc =
      "CCC の txt 形式ではありません。\r\n正しい CCC の txt 形式のﾌｧｲﾙにて実行して下さい。";
  for (const Row& row : rows_of(
           Row{"a.ALL", log_text, InputKind::zlog_all, "a.zsm", ""},
           Row{"b.all", log_text, InputKind::zlog_all, "b_za2c.zsm", ""},
           Row{"c.txt", "mon day time\r\n", InputKind::none, "",
               "Zlogw の txt 形式には未対応です\r\nZlogw の all 形式のﾌｧｲﾙにて実行して下さい。"},
           Row{"c.TXT", "ccc \r\n", InputKind::none, "", no_ccc},
           Row{"c.txt", "", InputKind::none, "", no_ccc},
           Row{"d.all", "zLog\r\n  \r\n", InputKind::zlog_all, "d_za2c.zsm", std::string{no_qso_text}},
           Row{"d.all", "zLog\r\n  \r\nQSO: 7000 CW 2025-11-29\r\n", InputKind::zlog_all, "d_za2c.zsm",
               std::string{no_all_log_text}},
           Row{"d.all",
               "zLog\r\nx025/11/29\r\n202x/11/29\r\n2025/x1/29\r\n2025/1a/29\r\n2025/11/x9\r\n2025/11/2\r\n"
               "202511/29\r\n",
               InputKind::zlog_all, "d_za2c.zsm", std::string{no_all_log_text}},
           Row{"e.xyz", "", InputKind::none, "",
               "対応していない形式のファイルです。\r\n*.all , *.zlo , *.txt , *.bin "
               "のファイルを指定して下さい。"})) {
    SCOPED_TRACE(row.name + row.bytes);
    StartedApp test;
    test.work.write("a.zsm", summary_text);
    test.desk.on_show = [&](FormName) { test.app.state.entry.dialog_shown = true; };  // confirmed
    run_action(test.app, [&] { test.open(test.work.write(row.name, row.bytes)); });
    const InputState& input = test.app.state.log.input;
    EXPECT_EQ(input.in_kind, row.in_kind);
    EXPECT_EQ(input.has_zsm, row.zsm_use == "a.zsm");
    EXPECT_EQ(input.zsm_use_name, row.zsm_use.empty() ? "" : test.work.path() + row.zsm_use);
    EXPECT_EQ(input.opened, row.refusal.empty());
    EXPECT_EQ(test.app.main.kaishi.enabled, row.refusal.empty());
    EXPECT_EQ(test.desk.texts.empty() ? "" : test.desk.texts.back(), row.refusal);
  }
}

TEST(Open, ForgetsThePreviousLogUnlessItIsCancelled) {
  StartedApp test;
  test.work.write("a.zsm", summary_text);
  test.open(test.work.write("a.all", log_text));
  set_in_dir_Open_file(test.app, "　title", "filter|*.all|");
  EXPECT_EQ(test.desk.open_requests.at(0).title, "　logs/　title");
  EXPECT_EQ(test.app.state.log.input.cbr_name, test.work.path() + "QX1ABC.cbr");
  EXPECT_EQ(test.app.state.log.tally.total_score, 5);
  test.app.state.entry.overlay_cat = "ROOKIE";
  test.open(test.work.write("b.all", log_text));
  EXPECT_EQ(test.app.state.log.tally.total_score, 0);
  EXPECT_EQ(test.app.state.log.contest.contest_name + test.app.state.entry.overlay_cat, "");
}

TEST(Open, TitlesOfTheSummaryCallForDialogs) {
  const std::pair<const char*, std::vector<FormName>> rows[] = {
      {"CQ WPX Contest", {FormName::frmOVERLAY}},
      {"JIDX Contest (JA)", {FormName::select_cont}},
      {"IOTA Contest", {FormName::select_cont}},
      {"CQWW DX Contest", {}}};
  for (const auto& [title, forms] : rows) {
    StartedApp test;
    test.work.write("a.zsm", replace_all(summary_text, "CQWW DX Contest", title));
    test.open(test.work.write("a.all", log_text));
    EXPECT_EQ(test.desk.forms, forms) << title;
    EXPECT_EQ(test.app.state.log.labels.power, contains(title, "JIDX") ? "県No 10" : "");
  }
}

}  // namespace
}  // namespace varnisto::test
