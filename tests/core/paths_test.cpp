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
  const std::string d22(22, 'd'), d28(28, 'd'), d33(33, 'd');
  for (const auto& [path, expected] : std::vector<std::pair<std::string, std::string>>{
           {"/home/a b/" + d28 + "/x.all", "/home/a b/" + d28 + "/x.all"},
           {"/home/a　b/" + d22 + "dddddddd/x y.all", "/home/a_b/" + d22 + ".../x_y.all"},
           // The limit falls into the middle of a character: that character is left out.
           {"/" + d33 + "d漢字/xx.all", "/" + d33 + ".../xx.all"},
           {"/漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字/xx.all",
            "/漢字漢字漢字漢字漢字漢字漢字漢字.../xx.all"}}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(shorten_path(path, 44), expected);
    EXPECT_LE(to_cp932(shorten_path(path, 44)).size(), 44U);
  }
}

TEST(Names, CallSignWithStrokeMakesNoFolder) {
  TestApp test;
  test.app.state.settings.mycall = " QX1ABC/1\x1B ";
  EXPECT_EQ(call_for_names(test.app), "QX1ABC-1-");
}

TEST(Options, AreRestoredWithTheEffectsOfAClick) {
  for (const auto& [power_sel, operator_sel, power, cat_operator, station, transmitter, multi_tx] :
       texts_of<7>("0|0|HIGH|SINGLE-OP|FIXED|ONE|0", " 2|1|QRP|SINGLE-OP|FIXED|ONE|0",
                   "||LOW|SINGLE-OP|FIXED|ONE|0", "3|7|LOW|SINGLE-OP|FIXED|ONE|0",
                   "x|2|LOW|MULTI-OP|SCHOOL|UNLIMITED|0", "1|3|LOW|MULTI-OP|FIXED|ONE|0",
                   "1|4|LOW|MULTI-OP|FIXED|TWO|1", "1|5|LOW|MULTI-OP|FIXED|UNLIMITED|1",
                   "1|6|LOW|CHECKLOG|FIXED|UNLIMITED|0")) {
    SCOPED_TRACE(operator_sel);
    TestApp test;
    test.app.state.settings.power_sel = power_sel;
    test.app.state.settings.operator_sel = operator_sel;
    restore_options(test.app);
    const EntryChoice& entry = test.app.state.entry;
    EXPECT_EQ(name_of(entry.power), power);
    EXPECT_EQ(cat_operator_of(entry), cat_operator);
    EXPECT_EQ(name_of(entry.station), station);
    EXPECT_EQ(name_of(entry.transmitter), transmitter);
    EXPECT_EQ(names_of(entry.op).multi_tx, multi_tx == "1");
  }
}

}  // namespace
}  // namespace varnisto::test
