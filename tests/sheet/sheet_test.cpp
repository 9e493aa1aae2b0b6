// Rules of tally, score and sheet, one by one.

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "sheet/score.h"
#include "sheet/tally.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

AllQso with(const std::string& band, const std::string& memo = "") {
  AllQso qso;
  qso.band = band;
  qso.memo = memo;
  return qso;
}
AllQso worth(const std::string& points, const std::string& mult1, const std::string& mult2) {
  AllQso qso;
  qso.points = points;
  qso.mult1 = mult1;
  qso.mult2 = mult2;
  return qso;
}

TEST(TallyLine, CountsInItsBandRow) {
  struct Row {
    std::string name;
    AllQso qso;
    int band;  ///< index of the row that counts it; -1: none
    int points = 1, mult1 = 0, mult2 = 0, qtc = 0;
    bool waedc = false;
    bool memo = false;
  };
  for (const Row& c :
       rows_of(Row{"band_1_9", with("1.9"), 0}, Row{"band_1_8_is_1_9", with("1.8"), 0},
               Row{"band_29_is_28", with("29"), 5}, Row{"band_10_counts_nowhere", with("10"), -1},
               Row{"band_50_counts_nowhere", with("50"), -1},
               Row{"memo_frequency_wins", with("7", "(14025)"), 3, 1, 0, 0, 0, false, true},
               Row{"memo_is_not_asked_for", with("7", "(14025)"), 2},
               Row{"memo_without_end", with("7", "(14025"), 2, 1, 0, 0, 0, false, true},
               Row{"three_digit_points_are_cut", worth("105", "", ""), 2, 10},
               Row{"new_multipliers", worth("3", "14", "QX"), 2, 3, 1, 1},
               Row{"dashes_are_old_multipliers", worth("3", "-", "-"), 2, 3},
               Row{"all_ignores_qtc", with("14", "[QTC1/1 QX1A"), 3},
               Row{"waedc_counts_qtc", with("14", "[QTC1/1 QX1A"), 3, 1, 0, 0, 1, true},
               Row{"waedc_weighs_40m", worth("1", "QX", ""), 2, 1, 3, 0, 0, true},
               Row{"waedc_has_no_1_8", with("1.8"), -1, 1, 0, 0, 0, true},
               Row{"waedc_ends_at_3600", with("3.5", "(3601)"), -1, 1, 0, 0, 0, true, true})) {
    SCOPED_TRACE(c.name);
    TallyState tally;
    tally_line(all_line(c.qso), c.waedc ? waedc_tally : all_tally, {false, c.memo}, tally);
    EXPECT_EQ(tally.cw_count, 1);
    for (int band = 0; band < 6; ++band) {
      const BandTally& row = tally.band_tally.at(static_cast<std::size_t>(band));
      const bool here = band == c.band;
      EXPECT_EQ(row.qso_cnt, here ? 1 : 0) << band;
      EXPECT_EQ(row.pts_sum, here ? c.points : 0);
      EXPECT_EQ(row.mult1_cnt, here ? c.mult1 : 0);
      EXPECT_EQ(row.mult2_cnt, here ? c.mult2 : 0);
      EXPECT_EQ(row.qtc_cnt, here ? c.qtc : 0);
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
  struct Row {
    std::string name, title;
    std::optional<std::int32_t> score;
  };
  for (const Row& row : rows_of(Row{"zones_and_countries", "CQWW DX Contest 2025", 700},
                                Row{"cq_160_with_its_blanks", "CQWW160     ", 700},
                                Row{"title_of_the_list_file", "CQWW160", 300}, Row{"bare_jidx", "JIDX", 700},
                                Row{"one_multiplier", "IARU HF World", 300},
                                Row{"all_asian_has_none", "All Asian DX Contest", std::nullopt})) {
    SCOPED_TRACE(row.name);
    TallyState tally;
    tally.points_total = 100;
    tally.multi1_total = 3;
    tally.multi2_total = 4;
    EXPECT_EQ(score_of(row.title, tally), row.score);
  }
}

}  // namespace
}  // namespace varnisto::test
