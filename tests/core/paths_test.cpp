#include "core/paths.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "base/cp932.h"
#include "base/files.h"
#include "core/main_options.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

struct PathCase {
  std::string path, file_name, ext, dir, stem;
};

class Pieces : public testing::TestWithParam<PathCase> {};

TEST_P(Pieces, FollowTheNamingRules) {
  const PathPieces pieces = pieces_of(GetParam().path);
  EXPECT_EQ(pieces.file_name, GetParam().file_name);
  EXPECT_EQ(pieces.ext, GetParam().ext);
  EXPECT_EQ(pieces.dir, GetParam().dir);
  EXPECT_EQ(pieces.stem, GetParam().stem);
}

INSTANTIATE_TEST_SUITE_P(Paths, Pieces,
                         testing::Values(PathCase{"/l/QX1.ALL", "QX1.ALL", "ALL", "/l/", "/l/QX1."},
                                         PathCase{"/l.d/a.b.all", "a.b.all", "all", "/l.d/", "/l.d/a.b."},
                                         PathCase{"/x.all/x.all", "x.all", "all", "//", "/x/x."},
                                         PathCase{"/l.d/noext", "noext", "", "/l.d/", "/ld/noext."},
                                         PathCase{"", "", "", "", "."}));

struct ShortCase {
  std::string path, expected;
};

class Shorten : public testing::TestWithParam<ShortCase> {};

TEST_P(Shorten, FitsTheLimitInBytesOfTheCodePage) {
  EXPECT_EQ(shorten_path(GetParam().path, 44), GetParam().expected);
  EXPECT_LE(to_cp932(shorten_path(GetParam().path, 44)).size(), 44U);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, Shorten,
    testing::Values(ShortCase{"/home/a b/2345678901234567890123456/x y.all",
                              "/home/a b/2345678901234567890123456/x y.all"},
                    ShortCase{"/home/a b/" + std::string(28, 'd') + "/x.all",
                              "/home/a b/" + std::string(28, 'd') + "/x.all"},
                    ShortCase{"/home/a　b/" + std::string(30, 'd') + "/x y.all",
                              "/home/a_b/" + std::string(22, 'd') + ".../x_y.all"},
                    // The limit falls into the middle of a character: that character is left out.
                    ShortCase{"/" + std::string(34, 'd') + "漢字/xx.all",
                              "/" + std::string(33, 'd') + ".../xx.all"},
                    ShortCase{"/漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字/xx.all",
                              "/漢字漢字漢字漢字漢字漢字漢字漢字.../xx.all"}));

TEST(Names, CallSignWithStrokeMakesNoFolder) {
  TestApp test;
  test.app.state.settings.mycall = " QX1ABC/1 ";
  EXPECT_EQ(call_for_names(test.app), "QX1ABC-1");
}

TEST(Summaries, MenuEntriesFollowTheFilesThatExist) {
  TestApp test;
  App& app = test.app;
  app.state.input.zsm_name = test.folder.path() + "x.zsm";
  test.folder.write("X_ZZ2C.ZSM", "");
  zsm_disp_chk(app);
  EXPECT_EQ(app.state.input.cb2c_name, test.folder.path() + "x_cb2c.zsm");
  EXPECT_TRUE(app.main.zsm_Disp_zz2c.enabled);
  EXPECT_FALSE(app.main.zsm_Disp_zsm.enabled || app.main.zsm_Disp_za2c.enabled ||
               app.main.zsm_Disp_ct2c.enabled || app.main.zsm_Disp_cb2c.enabled);
}

TEST(Scratch, FolderIsPrivateAndGoesAway) {
  TestApp test;
  const std::string folder = scratch_folder(test.app);
  EXPECT_EQ(scratch_folder(test.app), folder);
  EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
  remove_scratch_folder(test.app);
  EXPECT_FALSE(file_exists(folder));
}

struct OptionCase {
  std::string power_sel, operator_sel;
  std::string power, cat_operator, assisted, station, transmitter;
  int multi_tx;
};

class Options : public testing::TestWithParam<OptionCase> {};

TEST_P(Options, AreRestoredWithTheEffectsOfAClick) {
  TestApp test;
  Settings& settings = test.app.state.settings;
  settings.power_sel = GetParam().power_sel;
  settings.operator_sel = GetParam().operator_sel;
  settings.get_freq_flag = "1";
  settings.tenki_flag = "2";
  const CategoryState& category = test.app.state.category;
  restore_options(test.app);
  EXPECT_EQ(category.power_cat, GetParam().power);
  EXPECT_EQ(category.cat_operator, GetParam().cat_operator);
  EXPECT_EQ(category.cat_assisted, GetParam().assisted);
  EXPECT_EQ(category.cat_station, GetParam().station);
  EXPECT_EQ(category.cat_transmitter, GetParam().transmitter);
  EXPECT_EQ(category.multi_tx, GetParam().multi_tx);
  EXPECT_TRUE(test.app.main.Check4.checked);
  EXPECT_FALSE(test.app.main.Check7.checked);
  test.app.main.Check9.checked = true;
  save_options(test.app);
  EXPECT_EQ(settings.get_freq_flag + settings.tenki_flag + settings.e_mail_subject_flag, "101");
}

INSTANTIATE_TEST_SUITE_P(
    Stored, Options,
    testing::Values(OptionCase{"0", "0", "HIGH", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                    OptionCase{" 2", "1", "QRP", "SINGLE-OP", "ASSISTED", "FIXED", "ONE", 0},
                    OptionCase{"", "", "LOW", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                    OptionCase{"3", "7", "LOW", "SINGLE-OP", "NON-ASSISTED", "FIXED", "ONE", 0},
                    OptionCase{"x", "2", "LOW", "MULTI-OP", "", "SCHOOL", "UNLIMITED", 0},
                    OptionCase{"1", "3", "LOW", "MULTI-OP", "", "FIXED", "ONE", 0},
                    OptionCase{"1", "4", "LOW", "MULTI-OP", "", "FIXED", "TWO", 1},
                    OptionCase{"1", "5", "LOW", "MULTI-OP", "", "FIXED", "UNLIMITED", 1},
                    OptionCase{"1", "6", "LOW", "CHECKLOG", "", "FIXED", "UNLIMITED", 0}));

TEST(Options, APowerReplacesTheOthersInTheCategoryText) {
  TestApp test;
  test.app.state.category.cat_summary = "SINGLE-OP ALL HIGH";
  Option1_Click(test.app, 2);
  EXPECT_EQ(test.app.state.category.cat_summary, "SINGLE-OP ALL QRP");
  EXPECT_EQ(test.app.main.Option1.options[2].color, Color::blue);
  EXPECT_EQ(test.app.main.Option1.options[0].color, Color::black);
}

}  // namespace
}  // namespace varnisto::test
