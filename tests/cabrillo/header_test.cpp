#include "cabrillo/header.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "support/line_list.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Header, LineIsWrittenWhenItsConditionHolds) {
  struct Row {
    EntryChoice entry;
    std::vector<std::string> holds, lacks;
    InputKind in_kind = InputKind::zlog_all;
  };
  using enum Operator;
  const EntryChoice assisted{.op = single_op_assisted};
  for (const Row& row : rows_of(
           Row{assisted, {"CATEGORY-ASSISTED: ASSISTED"}, {"CATEGORY-ASSISTED: NON-ASSISTED"}},
           Row{assisted, {"CATEGORY-STATION: FIXED"}, {"CATEGORY-ASSISTED: ASSISTED"}, InputKind::zlog_zlo},
           Row{{.transmitter = Transmitter::two, .transmitter_chosen = true},
               {"CATEGORY-TRANSMITTER: ONE"},
               {}},
           Row{{.op = multi_one, .transmitter = Transmitter::two, .transmitter_chosen = true},
               {"CATEGORY-TRANSMITTER: TWO"},
               {}},
           Row{{.op = multi_one, .transmitter = Transmitter::two}, {"CATEGORY-TRANSMITTER: ONE"}, {}},
           Row{{.op = school_club}, {"CATEGORY-OPERATOR: MULTI-OP"}, {}},
           Row{{.op = school_club, .op_from_dialog = true}, {"CATEGORY-OPERATOR: SCHOOL-CLUB"}, {}},
           Row{{}, {"SOAPBOX: two", "SOAPBOX: five"}, {"SOAPBOX: "}})) {
    StartedApp test;
    State& state = test.app.state;
    state.log.contest.contest = "CQ-WW-CW";
    state.log.category.cat_summary = "SINGLE-OP-ASSISTED ALL LOW";
    state.settings.comments_2 = "two";
    state.settings.comments_5 = "five";
    state.log.input.in_kind = row.in_kind;
    state.entry = row.entry;
    LineList header;
    put_cbr_header(test.app, header);
    for (const std::string& line : row.holds) EXPECT_EQ(std::ranges::count(header.lines, line), 1) << line;
    for (const std::string& line : row.lacks) EXPECT_EQ(std::ranges::count(header.lines, line), 0) << line;
  }
}

}  // namespace
}  // namespace varnisto::test
