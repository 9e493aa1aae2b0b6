#include "cabrillo/header.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

class Lines final : public LineSink {
 public:
  std::string text;
  void put(std::string_view line) override { text.append(line).append("\n"); }
};

TEST(Header, LineIsWrittenWhenItsConditionHolds) {
  struct Row {
    std::string name;
    void (*prepare)(State&);
    std::string holds, lacks;
  };
  for (const Row& row :
       rows_of(Row{"assisted", [](State& s) { s.entry.op = Operator::single_op_assisted; },
                   "CATEGORY-ASSISTED: ASSISTED\n", "NON-"},
               Row{"assisted_of_a_zlo_log",
                   [](State& s) {
                     s.entry.op = Operator::single_op_assisted;
                     s.log.input.in_kind = InputKind::zlog_zlo;
                     s.log.category.cat_summary = "SINGLE-OP-ASSISTED ALL LOW";
                   },
                   "CATEGORY-STATION: ", "CATEGORY-ASSISTED"},
               Row{"single_op_transmitter",
                   [](State& s) {
                     s.entry.transmitter = Transmitter::two;
                     s.entry.transmitter_chosen = true;
                   },
                   "CATEGORY-TRANSMITTER: ONE\n", "TWO"},
               Row{"multi_op_transmitter",
                   [](State& s) {
                     s.entry.op = Operator::multi_one;
                     s.entry.transmitter = Transmitter::two;
                     s.entry.transmitter_chosen = true;
                   },
                   "CATEGORY-TRANSMITTER: TWO\n", "ONE"},
               Row{"multi_op_without_choice",
                   [](State& s) {
                     s.entry.op = Operator::multi_one;
                     s.entry.transmitter = Transmitter::two;
                   },
                   "CATEGORY-TRANSMITTER: ONE\n", "TWO"},
               Row{"school_club_of_the_main_window", [](State& s) { s.entry.op = Operator::school_club; },
                   "CATEGORY-OPERATOR: MULTI-OP\n", "SCHOOL"},
               Row{"school_club_of_the_dialog",
                   [](State& s) {
                     s.entry.op = Operator::school_club;
                     s.entry.op_from_dialog = true;
                   },
                   "CATEGORY-OPERATOR: SCHOOL-CLUB\n", "MULTI"},
               Row{"soapbox",
                   [](State& s) {
                     s.settings.comments_2 = "two";
                     s.settings.comments_5 = "five";
                   },
                   "ADDRESS: Japan\nSOAPBOX: two\nSOAPBOX: five\n", "SOAPBOX: \n"})) {
    SCOPED_TRACE(row.name);
    StartedApp test;
    test.app.state.log.contest.contest = "CQ-WW-CW";
    row.prepare(test.app.state);
    Lines lines;
    put_cbr_header(test.app, lines);
    const std::string& text = lines.text;
    EXPECT_TRUE(contains(text, row.holds)) << text;
    EXPECT_FALSE(contains(text, row.lacks)) << text;
  }
}

}  // namespace
}  // namespace varnisto::test
