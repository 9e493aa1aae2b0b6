#include "cabrillo/writer.h"

#include <gtest/gtest.h>

#include "cabrillo/all_scan.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

std::string log_of(std::initializer_list<AllQso> qsos) {
  std::string text = "zLog for Windows \n";
  for (const AllQso& qso : qsos) text += all_line(qso) + "\n";
  return text;
}

/// A log whose contest and category come from the program's own dialog.
class OwnCategory : public testing::Test {
 protected:
  OwnCategory() {
    test.start();
    app.state.settings.comments_2.clear();
    app.state.input.in_kind = "zlog_all";
    app.state.input.out_dir = work.path();
    app.state.contest.select_from = "za2c_zsm";
    app.state.category.operator_cat = "SINGLE-OP";
    app.state.category.power_cat = "LOW";
    app.state.category.cat_band = "ALL";
    app.state.category.cat_mode = "CW";
    app.state.category.cat_station.clear();
    app.state.tally.cw_count = 2;
    app.state.tally.total_score = 12;
  }

  void write(const std::string& title, std::initializer_list<AllQso> qsos) {
    app.state.contest.contest_name = title;
    app.state.input.in_name = work.write_text("log.all", log_of(qsos));
    zlog_all_za2c_print(app);
    app.outputs.commit();
  }

  TestApp test;
  TempDir work;
  App& app = test.app;
};

TEST_F(OwnCategory, GivesAWholeFile) {
  app.state.settings.get_freq_flag = "1";
  write("IARU HF Championship",
        {{.rcvd_exch = "25", .memo = "(7012.5)"}, {.rcvd = ""}, {.call = "表/P", .mode = "AM"}});
  EXPECT_EQ(app.state.input.out_name, work.path() + "QX1ABC.cbr");
  EXPECT_EQ(app.state.input.qsos_written, 2);
  EXPECT_EQ(work.read_text("QX1ABC.cbr"),
            "START-OF-LOG: 3.0\n"
            "CREATED-BY: Varnisto.exe ver 3.09\n"
            "LOCATION: DX\n"
            "CONTEST: IARU-HF\n"
            "CALLSIGN: QX1ABC\n"
            "CATEGORY-OPERATOR: SINGLE-OP\n"
            "CATEGORY-TRANSMITTER: ONE\n"
            "CATEGORY-POWER: LOW\n"
            "CATEGORY-MODE: CW\n"
            "CATEGORY-BAND: ALL\n"
            "CATEGORY-STATION: FIXED\n"
            "CATEGORY-ASSISTED: NON-ASSISTED\n"
            "CLAIMED-SCORE: 12\n"
            "OPERATORS: QX1ABC\n"
            "NAME: Taro Mihon\n"
            "ADDRESS: 1-2-3 Kakuu-cho\n"
            "ADDRESS: Mihon-shi 000-0000\n"
            "ADDRESS: Japan\n"
            "QSO: 012.5 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 25     \n"
            "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     表/P           599 14     \n"
            "END-OF-LOG:\n");
}

TEST_F(OwnCategory, DialogChoicesWinWhenPreferred) {
  app.state.settings.select_cont_yusen = "1";
  app.state.category.dialog_shown = true;
  app.state.category.dialog_category = "SINGLE-OP 3.5 LOW--CW";
  write("CQWW DX Contest", {{}});
  EXPECT_EQ(app.state.category.cat_summary, "SINGLE-OP 80M LOW-");
}

TEST_F(OwnCategory, ALogWithoutQsosLeavesTheEarlierOutput) {
  work.write("QX1ABC.cbr", "earlier");
  for (const char* bytes : {"", "title", "title\r\n  \r\n\r\n",
                            "title\r\n\x1A"
                            "2025"}) {
    app.state.contest.contest_name = "CQWW DX Contest";
    app.state.input.in_name = work.write("log.all", bytes);
    EXPECT_THROW(zlog_all_za2c_print(app), Refusal) << bytes;
    EXPECT_EQ(work.read("QX1ABC.cbr"), "earlier");
  }
}

AllQso sent(const std::string& band, const std::string& mode, const std::string& exchange) {
  return {.sent_exch = " " + exchange, .band = band, .mode = mode};
}

TEST(Scan, GuessesModeBandAndPower) {
  struct Row {
    std::vector<AllQso> qsos;
    int mode_sel, band_sel, lowband_flag;
    std::string power;
  };
  for (const Row& row : rows_of(
           Row{{}, 0, 0, 2, ""}, Row{{sent("7", "CW", "100")}, 2, 3, 1, "100"},
           Row{{sent("28", "SSB", "5"), sent("29", "SSB", "100"), sent("28", "SSB", "99")}, 1, 6, 2, "100"},
           Row{{sent("1.8", "RTY", "KW"), sent("1.9", "RTTY", "999")}, 3, 1, 1, "KW"},
           Row{{sent("14", "CW", "1K"), sent("21", "SSB", "KW")}, 0, 0, 2, "1K"},
           Row{{sent("14", "FM", "0"), sent("50", "AM", "x")}, 0, 4, 2, ""})) {
    TestApp test;
    std::string text = "title\n";
    for (const AllQso& qso : row.qsos) text += all_line(qso) + "\n";
    test.app.state.input.in_name = test.folder.write_text("log.all", text);
    get_mode_band_all(test.app);
    get_power_all(test.app);
    const CategoryState& category = test.app.state.category;
    EXPECT_EQ(category.mode_sel, row.mode_sel);
    EXPECT_EQ(category.band_sel, row.band_sel);
    EXPECT_EQ(category.lowband_flag, row.lowband_flag);
    EXPECT_EQ(category.max_power_text, row.power);
  }
}

TEST(Scan, PowerThresholdsSelectTheOption) {
  StartedApp test;
  const std::pair<const char*, int> rows[] = {{"5", 2}, {"6", 1}, {"150", 1}, {"151", 0}, {"kw", 0}};
  for (const auto& [text, option] : rows) {
    test.app.state.category.max_power_text = text;
    select_power_of_log(test.app);
    EXPECT_EQ(test.app.main.Option1.selected, option) << text;
  }
}

}  // namespace
}  // namespace varnisto::test
