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
    app.state.log.input.in_kind = InputKind::zlog_all;
    app.state.log.input.out_dir = work.path();
    app.state.log.contest.select_from = SelectFrom::za2c_zsm;
    app.state.log.category.cat_band = "ALL";
    app.state.entry.mode = Mode::cw;
    app.state.log.tally.cw_count = 2;
    app.state.log.tally.total_score = 12;
  }

  void write(const std::string& title, std::initializer_list<AllQso> qsos) {
    app.state.log.contest.contest_name = title;
    app.state.log.input.in_name = work.write_text("log.all", log_of(qsos));
    zlog_all_za2c_print(app);
    app.outputs.commit();
  }

  TestApp test;
  TempDir work;
  App& app = test.app;
};

TEST_F(OwnCategory, GivesAWholeFile) {
  app.state.settings.get_freq_flag = true;
  write("IARU HF Championship",
        {{.rcvd_exch = "25", .memo = "(7012.5)"}, {.rcvd = ""}, {.call = "表/P", .mode = "AM"}});
  EXPECT_EQ(app.state.log.input.out_name, work.path() + "QX1ABC.cbr");
  EXPECT_EQ(app.state.log.input.qsos_written, 2);
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
  app.state.settings.select_cont_yusen = Precedence::dialog;
  write("IARU HF Championship", {{}});
  EXPECT_EQ(app.state.log.category.cat_summary, "SINGLE-OP ALL LOW CW ");
  app.state.entry.dialog_shown = true;
  write("IARU HF Championship", {{}});
  EXPECT_EQ(app.state.log.category.cat_summary, "SINGLE-OP LOW CW");
}

TEST_F(OwnCategory, ALogWithoutQsosLeavesTheEarlierOutput) {
  work.write("QX1ABC.cbr", "earlier");
  for (const char* bytes : {"", "title", "title\r\n  \r\n\r\n",
                            "title\r\n\x1A"
                            "2025"}) {
    app.state.log.contest.contest_name = "CQWW DX Contest";
    app.state.log.input.in_name = work.write("log.all", bytes);
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
    Mode mode_sel;
    Band band_sel;
    bool lowband;
    std::string power;
  };
  for (const Row& row : rows_of(
           Row{{}, Mode::mixed, Band::all, false, ""},
           Row{{sent("7", "CW", "100")}, Mode::cw, Band::m40, true, "100"},
           Row{{sent("28", "SSB", "5"), sent("29", "SSB", "100"), sent("28", "SSB", "99")},
               Mode::ssb,
               Band::m10,
               false,
               "100"},
           Row{{sent("1.8", "RTY", "KW"), sent("1.9", "RTTY", "999")}, Mode::rtty, Band::m160, true, "KW"},
           Row{{sent("14", "CW", "1K"), sent("21", "SSB", "KW")}, Mode::mixed, Band::all, false, "1K"},
           Row{{sent("14", "FM", "0"), sent("50", "AM", "x")}, Mode::mixed, Band::m20, false, ""})) {
    TestApp test;
    std::string text = "title\n";
    for (const AllQso& qso : row.qsos) text += all_line(qso) + "\n";
    test.app.state.log.input.in_name = test.folder.write_text("log.all", text);
    ScanState found;
    get_mode_band_all(test.app, found);
    get_power_all(test.app, found);
    EXPECT_EQ(found.mode_sel, row.mode_sel);
    EXPECT_EQ(found.band_sel, row.band_sel);
    EXPECT_EQ(found.lowband, row.lowband);
    EXPECT_EQ(found.max_power_text, row.power);
  }
}

TEST(Scan, PowerThresholdsSelectTheOption) {
  StartedApp test;
  const std::pair<const char*, Power> rows[] = {
      {"5", Power::qrp}, {"6", Power::low}, {"150", Power::low}, {"151", Power::high}, {"kw", Power::high}};
  for (const auto& [text, power] : rows) {
    test.app.state.log.scan.max_power_text = text;
    select_power_of_log(test.app);
    EXPECT_EQ(test.app.state.entry.power, power) << text;
  }
}

}  // namespace
}  // namespace varnisto::test
