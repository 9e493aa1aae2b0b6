#include "core/paths.h"

#include <gtest/gtest.h>

#include "base/cp932.h"
#include "core/entry.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(Pieces, FollowTheNamingRules) {
  for (const auto& [path, file_name, ext, dir, stem] :
       texts_of<5>("/l/QX1.ALL|QX1.ALL|ALL|/l/|/l/QX1.", "/l.d/a.b.all|a.b.all|all|/l.d/|/l.d/a.b.",
                   "/x.all/x.all.all|x.all.all|all|/x.all/|/x.all/x.", "/l.d/noext|noext||/l.d/|/l.d/noext.",
                   "||||.")) {
    SCOPED_TRACE(path);
    const PathPieces pieces = pieces_of(path);
    EXPECT_EQ(pieces.file_name, file_name);
    EXPECT_EQ(pieces.ext, ext);
    EXPECT_EQ(pieces.dir, dir);
    EXPECT_EQ(pieces.stem, stem);
  }
}

TEST(Shorten, FitsTheLimitInBytesOfTheCodePage) {
  struct Row {
    std::string path, expected;
  };
  for (const Row& row : rows_of(
           Row{"/home/a b/2345678901234567890123456/x y.all", "/home/a b/2345678901234567890123456/x y.all"},
           Row{"/home/a b/" + std::string(28, 'd') + "/x.all",
               "/home/a b/" + std::string(28, 'd') + "/x.all"},
           Row{"/home/a　b/" + std::string(30, 'd') + "/x y.all",
               "/home/a_b/" + std::string(22, 'd') + ".../x_y.all"},
           // The limit falls into the middle of a character: that character is left out.
           Row{"/" + std::string(34, 'd') + "漢字/xx.all", "/" + std::string(33, 'd') + ".../xx.all"},
           Row{"/漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字/xx.all",
               "/漢字漢字漢字漢字漢字漢字漢字漢字.../xx.all"})) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(shorten_path(row.path, 44), row.expected);
    EXPECT_LE(to_cp932(shorten_path(row.path, 44)).size(), 44U);
  }
}

TEST(Names, CallSignWithStrokeMakesNoFolder) {
  TestApp test;
  test.app.state.settings.mycall = " QX1ABC/1\x1B ";
  EXPECT_EQ(call_for_names(test.app), "QX1ABC-1-");
}

TEST(Options, AreRestoredWithTheEffectsOfAClick) {
  struct Row {
    std::string power_sel, operator_sel;
    std::string power, cat_operator, station, transmitter;
    bool multi_tx;
  };
  for (const Row& row : rows_of(Row{"0", "0", "HIGH", "SINGLE-OP", "FIXED", "ONE", false},
                                Row{" 2", "1", "QRP", "SINGLE-OP", "FIXED", "ONE", false},
                                Row{"", "", "LOW", "SINGLE-OP", "FIXED", "ONE", false},
                                Row{"3", "7", "LOW", "SINGLE-OP", "FIXED", "ONE", false},
                                Row{"x", "2", "LOW", "MULTI-OP", "SCHOOL", "UNLIMITED", false},
                                Row{"1", "3", "LOW", "MULTI-OP", "FIXED", "ONE", false},
                                Row{"1", "4", "LOW", "MULTI-OP", "FIXED", "TWO", true},
                                Row{"1", "5", "LOW", "MULTI-OP", "FIXED", "UNLIMITED", true},
                                Row{"1", "6", "LOW", "CHECKLOG", "FIXED", "UNLIMITED", false})) {
    SCOPED_TRACE(row.power_sel);
    TestApp test;
    Settings& settings = test.app.state.settings;
    settings.power_sel = row.power_sel;
    settings.operator_sel = row.operator_sel;
    restore_options(test.app);
    const EntryChoice& entry = test.app.state.entry;
    EXPECT_EQ(name_of(entry.power), row.power);
    EXPECT_EQ(cat_operator_of(entry), row.cat_operator);
    EXPECT_EQ(name_of(entry.station), row.station);
    EXPECT_EQ(name_of(entry.transmitter), row.transmitter);
    EXPECT_EQ(names_of(entry.op).multi_tx, row.multi_tx);
    EXPECT_EQ(settings.power_sel + settings.operator_sel, row.power_sel + row.operator_sel);
  }
}

}  // namespace
}  // namespace varnisto::test
