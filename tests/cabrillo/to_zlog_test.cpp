#include "cabrillo/to_zlog.h"

#include <gtest/gtest.h>

#include "app/driver.h"
#include "app/open_input.h"
#include "base/text.h"
#include "cabrillo/writer.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(ToZlog, TurnsAQsoLineIntoALoggersLine) {
  struct Row {
    std::string name, qso, text;
  };
  for (const Row& row :
       rows_of(Row{"cw", "QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14     ",
                   " 11  29 0012 QX9DEF     59925        59914            14     7  CW  1"},
               Row{"phone_with_short_reports",
                   "QSO: 14000 PH 2025-07-05 2359 QX1ABC        59  001    QX9DEF/P      57  123456 ",
                   "  7  05 2359 QX9DEF/P    59001        57123456    123456    14  SSB 1"},
               Row{"rtty_top_band",
                   "QSO:  1900 RY 2025-10-05 0000 QX1ABC        599 25     QX9DEF        599 14     ",
                   " 10  05 0000 QX9DEF     59925        59914            14   1.8  RTY 1"},
               Row{"other_mode",
                   "QSO:  3500 FM 2025-10-05 0000 QX1ABC        599 25     QX9DEF        599 14     ",
                   " 10  05 0000 QX9DEF     59925        59914            14   3.5  FM 1"},
               Row{"long_fields_are_cut",
                   "QSO: 28000 CW 2025-11-29 0012 QX1ABC        599 1234567QX9DEFGHIJKL  599 7654321",
                   " 11  29 0012 QX9DEFGHIJK599123456    599765432    765432    28  CW  1"},
               Row{"ends_behind_the_time", "QSO:  7000 CW 2025-11-29 0012",
                   " 11  29 0012                                7  CW  1"},
               Row{"tag_alone", "QSO:", std::string(38, ' ') + ".   1"})) {
    SCOPED_TRACE(row.name);
    std::string text;
    append_zlog_text_line(row.qso, text);
    EXPECT_EQ(text, row.text);
  }
}

struct Contact {
  std::string month, day, time, call, band;
  bool operator==(const Contact&) const = default;
};
void PrintTo(const Contact& contact, std::ostream* out) {
  *out << contact.month << "/" << contact.day << " " << contact.time << " " << contact.call << " "
       << contact.band;
}

std::string piece(const std::string& line, std::size_t first, std::size_t width) {
  return std::string{trim(mid(line, first, width))};
}

TEST(ToZlogRun, BringsEveryQsoOfALogBack) {
  TestApp test;
  test.open_copy(source_dir("examples/cqww-cw"), "QX1ABC.ALL");
  kaishi_Click(test.app);
  open_chosen_cbr(test.app, test.work.path() + "QX1ABC.cbr");
  test.work.write("QX1ABC_c2z.txt2", "left over");
  kaishi_Click(test.app);

  std::vector<Contact> logged, returned;
  std::istringstream all{test.work.read_text("QX1ABC.ALL")}, text{test.work.read_text("QX1ABC_c2z.txt")};
  std::string line;
  std::getline(all, line);
  while (std::getline(all, line)) {
    const std::string month = piece(line, 6, 2);
    logged.push_back({month.starts_with('0') ? month.substr(1) : month, piece(line, 9, 2),
                      piece(line, 12, 2) + piece(line, 15, 2), piece(line, 18, 11), piece(line, 67, 3)});
    if (logged.back().band == "1.9") logged.back().band = "1.8";  // how that text names the band
  }
  std::getline(text, line);
  EXPECT_EQ(line, zlog_text_titles);
  while (std::getline(text, line))
    returned.push_back(
        {piece(line, 1, 3), piece(line, 6, 2), piece(line, 9, 4), piece(line, 14, 11), piece(line, 58, 5)});
  EXPECT_EQ(logged.size(), 408U);
  EXPECT_EQ(returned, logged);

  EXPECT_FALSE(test.work.has("QX1ABC_c2z.txt2"));
  EXPECT_TRUE(test.app.main.kaishi.enabled);
  EXPECT_EQ(test.app.state.display.progress, Progress::done);
}

TEST(ToZlogRun, TakesQsoLinesOnly) {
  StartedApp test;
  open_chosen_cbr(test.app, test.work.write_text("log.cbr",
                                                 "START-OF-LOG: 3.0\nX-QSO:  7000 CW 2025-11-29 0012\n"
                                                 "SOAPBOX: QSO: none\nQTC:  7000 CW 2025-11-29 0012\n"
                                                 "END-OF-LOG:\n"));
  test.work.write("log_c2z.txt", "earlier");
  EXPECT_THROW(kaishi_Click(test.app), Refusal);
  test.app.outputs.back_to(0);
  EXPECT_EQ(test.work.files().size(), 2U);
  EXPECT_EQ(test.work.read("log_c2z.txt"), "earlier");
}

}  // namespace
}  // namespace varnisto::test
