// Logs without a summary of the logger, from the selection dialog to the files on disk.

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

#include "app/driver.h"
#include "cabrillo/writer.h"
#include "support/errors.h"
#include "support/test_app.h"
#include "ui/frm_overlay.h"
#include "ui/select_cont.h"

namespace varnisto::test {
namespace {

struct Choice {
  std::string contest;
  int op = -1, power = -1;  ///< -1: as preset
  std::string overlay = "";
};

void choose(Form& form, const std::string& group, int option) {
  if (option < 0) return;
  form.find<OptionGroup>(group)->selected = option;
  form.click(group, option);
}

void choose_entry(Form& form, const std::string& text) {
  ListBox& list = *form.find<ListBox>("List1");
  const auto hit = std::ranges::find(list.items, text);
  ASSERT_NE(hit, list.items.end()) << text;
  list.selected = static_cast<int>(hit - list.items.begin());
  form.click("List1", list.selected);
}

void play_select_cont(App& app, const Choice& choice) {
  select_cont form{app};
  form.Form_Load();
  choose_entry(form, choice.contest);
  choose(form, "Option3", choice.op);
  choose(form, "Option1", choice.power);
  form.click("cmdOK");
  EXPECT_TRUE(form.closed);
}

void play_overlay(App& app, const Choice& choice) {
  frmOVERLAY form{app};
  form.Form_Load();
  if (!choice.overlay.empty()) {
    choose(form, "Option1", 1);
    choose_entry(form, choice.overlay);
  }
  form.click("cmdOK");
}

/// Answers both dialogs with the same choice whenever they open.
void answer(TestApp& test, const Choice& choice) {
  test.desk.on_show = [&test, choice](FormName form) {
    if (form == FormName::select_cont) play_select_cont(test.app, choice);
    if (form == FormName::frmOVERLAY) play_overlay(test.app, choice);
  };
}

struct Family {
  std::string folder, log;
  Choice choice;
  std::string cabrillo, copy;
};

class NoSummary : public testing::TestWithParam<Family> {};

/// The steps behind the writer are left out for WAEDC: its QTC steps have tests of their own.
void convert(TestApp& test) {
  if (test.app.state.log.contest.cont_id == "WAEDC")
    zlog_all_za2c_print(test.app), test.app.outputs.commit();
  else
    kaishi_Click(test.app);
}

TEST_P(NoSummary, BecomesSheetAndCabrilloHoweverOften) {
  const auto data = source_dir("tests/data/no_summary") / GetParam().folder;
  TempDir expected;
  expected.copy_from(data / "expected");
  expected.copy_from(data / "in");
  TestApp test;
  answer(test, GetParam().choice);
  test.open_copy(data / "in", GetParam().log);
  for (int run = 0; run < 2; ++run) {
    convert(test);
    auto files = test.work.files();
    if (!GetParam().copy.empty()) {
      EXPECT_EQ(files[GetParam().copy], files[GetParam().cabrillo]);
      files.erase(GetParam().copy);
    }
    EXPECT_EQ(files, expected.files());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Contests, NoSummary,
    testing::Values(
        Family{"arrl-dx", "dx2025.ALL", {"ARRL International DX Contest"}, "QX1ABC.log", "QX1ABC.cbr"},
        Family{"arrl-10m", "ten.ALL", {"ARRL 10m Contest", 0, 0}, "QX1ABC.log", "QX1ABC.cbr"},
        Family{"cqwpx", "wpx.ALL", {"CQ WPX Contest", 1}, "QX1ABC.cbr", "QX1ABC.log"},
        Family{
            "cqwpx-overlay", "wpxssb.all", {"CQ WPX Contest", 4, 0, "CLASSIC"}, "QX1ABC.cbr", "QX1ABC.log"},
        Family{"cqww", "cqww.ALL", {"CQWW DX Contest"}, "QX1ABC.cbr", "QX1ABC.log"},
        Family{"iaru", "iaru.ALL", {"IARU HF Championship", 0, 2}, "QX1ABC.cbr", "QX1ABC.log"},
        Family{"jidx-low", "jidx.ALL", {"JIDX Contest", 0, 1}, "QX1ABC-ABL.log", "QX1ABC-ABL.cbr"},
        Family{"jidx-mop", "mop.ALL", {"JIDX Contest", 3, 0}, "QX1ABC-MOP.log", "QX1ABC-MOP.cbr"},
        Family{"waedc", "waedc.ALL", {"WAEDC Contest"}, "QX1ABC.cbr", ""},
        Family{"listed", "uba.ALL", {"UBA DX Contest"}, "QX1ABC.cbr", "QX1ABC.log"},
        Family{"all-asian", "aa.ALL", {"All Asian DX Contest"}, "QX1ABC.cbr", "QX1ABC.log"}),
    [](const auto& family) {
      std::string name = family.param.folder;
      std::ranges::replace(name, '-', '_');
      return name;
    });

TEST(Sheet, AnOverflowIsError6AndLeavesTheEarlierSheet) {
  TestApp test;
  AllQso qso;
  qso.points = "99";
  std::string log = "title\n";
  for (int i = 0; i < 331; ++i) log += all_line(qso) + "\n";  // 331 x 99 points > 32767
  test.work.write_text("big.ALL", log);
  test.work.write_text("big_za2c.zsm", "an earlier sheet\n");
  answer(test, {"CQWW DX Contest"});
  test.start();
  EXPECT_EQ(error_of([&] { test.open(test.work.path() + "big.ALL"); }), RunTimeError::overflow);
  EXPECT_EQ(test.work.read_text("big_za2c.zsm"), "an earlier sheet\n");
  EXPECT_EQ(test.work.files().size(), 2U);
}

TEST(Sheet, NeverReplacesTheLoggersOwnSummary) {
  TestApp test;
  test.work.write_text("log.ALL", "title\n" + all_line({}) + "\n");
  const std::string summary = "JIDX Contest\nCategory: Single-op All Band CW\nTotal score : 12\n";
  test.work.write_text("log.zsm", summary);
  answer(test, {"JIDX Contest", 0, 0});
  test.start();
  test.open(test.work.path() + "log.ALL");
  EXPECT_EQ(test.work.read_text("log.zsm"), summary);
  EXPECT_TRUE(test.work.has("log_za2c.zsm"));
  EXPECT_EQ(test.app.state.log.input.zsm_use_name, test.work.path() + "log_za2c.zsm");
  EXPECT_EQ(test.app.state.log.contest.select_from, SelectFrom::za2c_zsm);
}

TEST(Sheet, IotaIsRefusedBeforeAnythingIsWritten) {
  TestApp test;
  test.work.write_text("log.ALL", "title\n" + all_line({}) + "\n");
  answer(test, {"IOTA Contest"});
  test.start();
  EXPECT_THROW(test.open(test.work.path() + "log.ALL"), NotAvailable);
  EXPECT_EQ(test.work.files().size(), 1U);
}

}  // namespace
}  // namespace varnisto::test
