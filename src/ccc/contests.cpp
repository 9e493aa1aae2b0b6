#include "ccc/contests.h"

#include <algorithm>
#include <iterator>

#include "base/short_text.h"

namespace varnisto {
namespace {

constexpr std::string_view before_name = "CCC TXT file for";
constexpr std::string_view behind_name = "contest";

constexpr CccLine zone_line{CccBinSent::nothing, 4, 4, 8, &CccRecord::exchange};
constexpr CccLine power_line{CccBinSent::power, 8, 8, 0, &CccRecord::exchange};
constexpr CccLine iaru_line{CccBinSent::itu_zone, 8, 8, 0, &CccRecord::exchange};
constexpr CccLine serial_line{CccBinSent::serial, 8, 8, 0, &CccRecord::mult_text};

constexpr Columns rst_first{35, 3}, exch_first{40, 6};    // the first report of a line
constexpr Columns rst_second{47, 3}, exch_second{52, 6};  // the received one behind the sent one
constexpr Columns mult_behind{60, 6}, points_behind{68, 2};

// The received exchange of CQ WW and JIDX reaches into the multiplier that stands behind it.
constexpr CccColumns cqww_columns{no_column, no_column, rst_first, exch_first, {44, 4}, {48, 4}, {56, 2}};
constexpr CccColumns jidx_columns{no_column, no_column, rst_first, exch_first, {44, 3}, {48, 4}, {56, 1}};
constexpr CccColumns iaru_columns{rst_first,   exch_first, rst_second,   exch_second,
                                  mult_behind, no_column,  points_behind};
constexpr CccColumns ardx_columns{rst_first,   no_column, rst_second,   exch_second,
                                  mult_behind, no_column, points_behind};
constexpr CccColumns cqwpx_columns{rst_first, {40, 4}, rst_second, exch_second, {60, 4}, no_column, {67, 2}};

constexpr CccContest contests[] = {
    {.key = "ARRLD",
     .header_word = "ARRLDX",
     .title = "ARRL International DX Contest (DX) ",
     .sheet_code = "ARRL-DX",
     .layout = &ccc_power_layout,
     .line = power_line,
     .columns = ardx_columns,
     .mode_report = CccReport::sent,
     .sent = CccSent::number,
     .report_by_mode = false,
     .rtty_box = true,
     .dash_counts = false,
     .needs_report = false},
    {.key = "IARU ",
     .header_word = "IARU",
     .title = "IARU HF World Championship ",
     .sheet_code = "IARU HF World Championship ",
     .layout = &ccc_iaru_layout,
     .line = iaru_line,
     .columns = iaru_columns,
     .mode_report = CccReport::sent,
     .sent = CccSent::logged,
     .report_by_mode = false,
     .rtty_box = true,
     .dash_counts = false,
     .needs_report = true},
    {.key = "CQWW ",
     .header_word = "CQWW",
     .title = "CQWW DX Contest ",
     .sheet_code = "CQWW-DX",
     .layout = &ccc_zone_layout,
     .line = zone_line,
     .columns = cqww_columns,
     .mode_report = CccReport::rcvd,
     .sent = CccSent::zone,
     .report_by_mode = true,
     .rtty_box = true,
     .dash_counts = false,
     .needs_report = true},
    {.key = "JIDX ",
     .header_word = "JIDX",
     .title = "JIDX Contest (JA) ",
     .sheet_code = "",
     .layout = &ccc_zone_layout,
     .line = zone_line,
     .columns = jidx_columns,
     .mode_report = CccReport::rcvd,
     .sent = CccSent::number,
     .report_by_mode = true,
     .rtty_box = false,
     .dash_counts = false,
     .needs_report = true},
    {.key = "CQWPX",
     .header_word = "CQWPX",
     .title = "CQ WPX Contest ",
     .sheet_code = "CQ-WPX",
     .layout = &ccc_serial_layout,
     .line = serial_line,
     .columns = cqwpx_columns,
     .mode_report = CccReport::sent,
     .sent = CccSent::logged,
     .report_by_mode = false,
     .rtty_box = false,
     .dash_counts = true,
     .needs_report = true},
};

/// A second spelling in the first line of text logs.
constexpr std::string_view cqww_other_key = "CQ-WW", cqww_key = "CQWW ";

}  // namespace

std::span<const CccContest> ccc_contests() {
  return contests;
}

const CccContest* ccc_contest_of(std::string_view key) {
  if (key == cqww_other_key) key = cqww_key;
  const auto* hit = std::ranges::find(contests, key, &CccContest::key);
  return hit == std::end(contests) ? nullptr : hit;
}

std::string ccc_contest_name(std::string_view first_line) {
  return std::string{trim_left(remove_all(remove_all(first_line, before_name), behind_name))};
}

std::string ccc_header_line(const CccContest& contest, std::string_view version) {
  std::string line;
  set_joined(line, before_name, " ", contest.header_word, " ", behind_name, " from bin     by Varnisto ",
             version);
  return line;
}

}  // namespace varnisto
