// Rules of tally, score and sheet, one by one.

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "sheet/score.h"
#include "sheet/tally.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(TallyLine, CountsInItsBandRow) {
  struct Row {
    AllQso qso;
    int band;                 ///< index of the row that counts it; -1: none
    std::vector<int> counts;  ///< points, multipliers, QTC
    bool waedc = false;
    bool memo = false;
  };
  const AllQso new_ones{.mult1 = "14", .mult2 = "QX", .points = "3"};
  const AllQso old_ones{.mult1 = "-", .mult2 = "-", .points = "105"};  // two digits count
  for (const Row& row : rows_of(
           Row{{.band = "1.9"}, 0, {1, 0, 0, 0}}, Row{{.band = "1.8"}, 0, {1, 0, 0, 0}},
           Row{{.band = "29"}, 5, {1, 0, 0, 0}}, Row{{.band = "10"}, -1, {}}, Row{{.band = "50"}, -1, {}},
           Row{{.memo = "(14025)"}, 3, {1, 0, 0, 0}, false, true}, Row{{.memo = "(14025)"}, 2, {1, 0, 0, 0}},
           Row{{.memo = "(14025"}, 2, {1, 0, 0, 0}, false, true}, Row{new_ones, 2, {3, 1, 1, 0}},
           Row{old_ones, 2, {10, 0, 0, 0}}, Row{new_ones, 2, {3, 3, 1, 0}, true},
           Row{{.band = "14", .memo = "[QTC1/1 QX1A"}, 3, {1, 0, 0, 0}},
           Row{{.band = "14", .memo = "[QTC1/1 QX1A"}, 3, {1, 0, 0, 1}, true},
           Row{{.mult1 = "QX", .band = "28"}, 5, {1, 2, 0, 0}, true}, Row{{.band = "1.8"}, -1, {}, true},
           Row{{.mult1 = "QX", .band = "3.5", .memo = "(3600)"}, 1, {1, 4, 0, 0}, true, true},
           Row{{.band = "3.5", .memo = "(3601)"}, -1, {}, true, true})) {
    const std::string line = all_line(row.qso);
    SCOPED_TRACE(line);
    TallyState tally;
    tally_line(line, row.waedc ? waedc_tally : all_tally, {false, row.memo}, tally);
    EXPECT_EQ(tally.cw_count, 1);
    for (int band = 0; band < 6; ++band) {
      const BandTally& got = tally.band_tally.at(static_cast<std::size_t>(band));
      const bool here = band == row.band;
      EXPECT_EQ(got.qso_cnt, here ? 1 : 0) << band;
      EXPECT_EQ((std::vector<int>{got.pts_sum, got.mult1_cnt, got.mult2_cnt, got.qtc_cnt}),
                here ? row.counts : std::vector<int>(4))
          << band;
    }
  }
}

TEST(Score, BeyondThirtyTwoBitsIsAnOverflow) {
  TallyState tally;
  tally.points_total = 60000;
  tally.multi1_total = 35791;
  EXPECT_EQ(score_of("CQ WPX Contest", tally), 2147460000);
  ++tally.multi1_total;
  EXPECT_THROW(score_of("CQ WPX Contest", tally), RunTimeError);
}

TEST(Score, FollowsTheTitle) {
  for (const auto& [title, score] :
       texts_of<2>("CQWW DX Contest 2025|700", "CQWW160     |700", "CQWW160|300", "JIDX|700",
                   "JIDX Contest|700", "IARU HF World|300", "ARRL 160m Contest|300",
                   "All Asian DX Contest|none", "Asia Pacific Sprint|none")) {
    TallyState tally;
    tally.points_total = 100;
    tally.multi1_total = 3;
    tally.multi2_total = 4;
    const auto got = score_of(title, tally);
    EXPECT_EQ(got ? std::to_string(*got) : "none", score) << title;
  }
}

}  // namespace
}  // namespace varnisto::test
