#include "ccc/tally.h"

#include "base/checked_int.h"
#include "base/text.h"

namespace varnisto {
namespace {

bool counts(std::string_view mult, bool dash_counts) {
  return !mult.empty() && (dash_counts || mult != "-");
}

void count_mode(std::string_view mode2, CccTally& tally) {
  if (mode2 == "CW") add_checked(tally.cw, 1, "cw_count");
  if (mode2 == "PH") add_checked(tally.ssb, 1, "ssb_count");
  if (mode2 == "RY") add_checked(tally.rtty, 1, "rty_count");
}

/// Points may have a fraction: each sum is a whole number.
void add_points(std::int16_t& sum, std::string_view points) {
  if (points.size() == 1 && points.front() >= '0' && points.front() <= '9')
    return add_checked(sum, points.front() - '0', "pts_sum");  // nearly every line
  const std::int64_t rounded = round_half_even(sum + numeric_value(points));
  add_checked(sum, rounded - sum, "pts_sum");
}

struct Sum {
  std::int16_t CccBandTally::*counter;
  std::int32_t CccTally::*total;
  const char* name;
};
constexpr Sum sums[] = {{&CccBandTally::qsos, &CccTally::qsos, "total_qso"},
                        {&CccBandTally::points, &CccTally::points, "total_points"},
                        {&CccBandTally::mult1, &CccTally::mult1, "total_mult1"},
                        {&CccBandTally::mult2, &CccTally::mult2, "total_mult2"}};

}  // namespace

void tally_ccc_qso(const CccQso& qso, const CccContest& contest, CccTally& tally) {
  if (!qso.band) return;
  count_mode(qso.mode2, tally);
  CccBandTally& band = tally.bands.at(index_of(*qso.band));
  add_checked(band.qsos, 1, "qso_cnt");
  add_points(band.points, qso.points);
  if (counts(qso.mult1, contest.dash_counts)) add_checked(band.mult1, 1, "mult1_cnt");
  if (counts(qso.mult2, contest.dash_counts)) add_checked(band.mult2, 1, "mult2_cnt");
}

void sum_ccc_tally(CccTally& tally) {
  for (const Sum& sum : sums) {
    std::int16_t total = 0;
    for (const CccBandTally& band : tally.bands) add_checked(total, band.*sum.counter, sum.name);
    tally.*sum.total = total;
  }
  tally.score = multiply_i32(tally.mult1 + tally.mult2, tally.points, "total_score");
}

}  // namespace varnisto
