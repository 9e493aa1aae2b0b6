#include "core/paths.h"

#include <gtest/gtest.h>

#include "base/cp932.h"
#include "core/main_options.h"
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
    std::string power, cat_operator, assisted, station, transmitter;
    int multi_tx;
  };
  for (const Row& row : rows_of(Row{"0", "0", "HIGH", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                                Row{" 2", "1", "QRP", "SINGLE-OP", "ASSISTED", "FIXED", "ONE", 0},
                                Row{"", "", "LOW", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                                Row{"3", "7", "LOW", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                                Row{"x", "2", "LOW", "MULTI-OP", "", "SCHOOL", "UNLIMITED", 0},
                                Row{"1", "3", "LOW", "MULTI-OP", "", "FIXED", "ONE", 0},
                                Row{"1", "4", "LOW", "MULTI-OP", "", "FIXED", "TWO", 1},
                                Row{"1", "5", "LOW", "MULTI-OP", "", "FIXED", "UNLIMITED", 1},
                                Row{"1", "6", "LOW", "CHECKLOG", "", "FIXED", "UNLIMITED", 0})) {
    SCOPED_TRACE(row.power_sel);
    TestApp test;
    Settings& settings = test.app.state.settings;
    settings.power_sel = row.power_sel;
    settings.operator_sel = row.operator_sel;
    settings.get_freq_flag = "1";
    settings.tenki_flag = "2";
    const CategoryState& category = test.app.state.category;
    restore_options(test.app);
    EXPECT_EQ(category.power_cat, row.power);
    EXPECT_EQ(category.cat_operator, row.cat_operator);
    EXPECT_EQ(category.cat_assisted, row.assisted);
    EXPECT_EQ(category.cat_station, row.station);
    EXPECT_EQ(category.cat_transmitter, row.transmitter);
    EXPECT_EQ(category.multi_tx, row.multi_tx);
    EXPECT_TRUE(test.app.main.Check4.checked);
    EXPECT_FALSE(test.app.main.Check7.checked);
    test.app.main.Check9.checked = true;
    save_options(test.app);
    EXPECT_EQ(settings.get_freq_flag + settings.tenki_flag + settings.e_mail_subject_flag, "101");
  }
}

}  // namespace
}  // namespace varnisto::test
