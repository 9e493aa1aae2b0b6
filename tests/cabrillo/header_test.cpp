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
       rows_of(Row{"assisted", [](State& s) { s.category.operator_cat = "SINGLE-OP-ASSISTED"; },
                   "CATEGORY-ASSISTED: ASSISTED\n", "NON-"},
               Row{"mixed_case_assisted",
                   [](State& s) {
                     s.category.operator_cat = "Single-op-Assisted";
                     s.category.cat_summary = "SINGLE-OP-ASSISTED ALL LOW";
                   },
                   "CATEGORY-STATION: ", "CATEGORY-ASSISTED"},
               Row{"single_op_transmitter",
                   [](State& s) {
                     s.category.cat_transmitter = "TWO";
                     s.category.transmitter_chosen = true;
                   },
                   "CATEGORY-TRANSMITTER: ONE\n", "TWO"},
               Row{"multi_op_transmitter",
                   [](State& s) {
                     s.category.cat_operator = "MULTI-OP";
                     s.category.cat_transmitter = "TWO";
                     s.category.transmitter_chosen = true;
                   },
                   "CATEGORY-TRANSMITTER: TWO\n", "ONE"},
               Row{"multi_op_without_choice",
                   [](State& s) {
                     s.category.cat_operator = "MULTI-OP";
                     s.category.cat_transmitter = "TWO";
                   },
                   "CATEGORY-TRANSMITTER: ONE\n", "TWO"},
               Row{"soapbox",
                   [](State& s) {
                     s.settings.comments_2 = "two";
                     s.settings.comments_5 = "five";
                   },
                   "ADDRESS: Japan\nSOAPBOX: two\nSOAPBOX: five\n", "SOAPBOX: \n"})) {
    SCOPED_TRACE(row.name);
    StartedApp test;
    test.app.state.contest.contest = "CQ-WW-CW";
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
