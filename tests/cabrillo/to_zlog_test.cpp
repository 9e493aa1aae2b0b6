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
  for (const auto& [qso, text] :
       texts_of<2>("QSO:  7000 CW 2025-11-29 0012 QX1ABC        599 25     QX9DEF        599 14     |"
                   " 11  29 0012 QX9DEF     59925        59914            14     7  CW  1",
                   "QSO: 14000 PH 2025-07-05 2359 QX1ABC        59  001    QX9DEF/P      57  123456 |"
                   "  7  05 2359 QX9DEF/P    59001        57123456    123456    14  SSB 1",
                   "QSO:  1900 RY 2025-10-05 0000 QX1ABC        599 25     QX9DEF        599 14     |"
                   " 10  05 0000 QX9DEF     59925        59914            14   1.8  RTY 1",
                   "QSO:  3500 FM 2025-10-05 0000 QX1ABC        599 25     QX9DEF        599 14     |"
                   " 10  05 0000 QX9DEF     59925        59914            14   3.5  FM 1",
                   "QSO: 28000 CW 2025-11-29 0012 QX1ABC        599 1234567QX9DEFGHIJKL  599 7654321|"
                   " 11  29 0012 QX9DEFGHIJK599123456    599765432    765432    28  CW  1",
                   "QSO:  7000 CW 2025-11-29 0012| 11  29 0012                                7  CW  1",
                   "QSO:|                                      .   1")) {
    std::string line;
    append_zlog_text_line(qso, line);
    EXPECT_EQ(line, text);
  }
}

TEST(ToZlogRun, WritesTitlesAndALineAQsoAndClearsTheScratchFile) {
  TestApp test;
  test.open_copy(source_dir("examples/cqww-cw"), "QX1ABC.ALL");
  kaishi_Click(test.app);
  open_chosen_cbr(test.app, test.work.path() + "QX1ABC.cbr");
  test.work.write("QX1ABC_c2z.txt2", "left over");
  kaishi_Click(test.app);
  const auto lines = split(test.work.read_text("QX1ABC_c2z.txt"), '\n');
  EXPECT_EQ(lines.front(), zlog_text_titles);
  EXPECT_EQ(lines.size(), 1 + 408 + 1);  // nothing behind the last line end
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
