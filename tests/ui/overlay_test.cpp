#include <gtest/gtest.h>

#include "core/lists.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/frm_overlay.h"

namespace varnisto::test {
namespace {

TEST(OverlayKey, FollowsContestAndMode) {
  for (const auto& [cont_id, mode, key] : texts_of<3>("CQ-WPX|PH|CQ-WPX-SSB", "CQ WPX Contest|cw|CQ-WPX-CW",
                                                      "CQWPX|RY|CQ-WPX", "CQ-WPX|Mixed|CQ-WPX")) {
    SCOPED_TRACE(cont_id);
    EXPECT_EQ(overlay_key_of(cont_id, mode), key);
  }
}

class Overlay : public testing::Test {
 protected:
  Overlay() {
    test.folder.write_text("OVERLAY.txt", "CQ-WPX-CW,TB-WIRES\nCQ-WPX-SSB,ROOKIE\nCQ-WPX-SSB,\" YOUTH \"\n");
    test.start();
    test.app.state.contest.cont_id = "CQ-WPX";
    test.app.state.category.overlay_caller = "select_cont";
    test.app.state.category.dialog_mode = "PH";
    test.app.state.category.overlay_cat = test.app.state.category.overlay_key = "old";
  }
  TestApp test;
};

TEST_F(Overlay, ListsTheOffersOfTheDialogsMode) {
  test.app.state.category.zsm_mode = "CW";
  EXPECT_EQ(FrmOverlay{test.app}.List1.items, (std::vector<std::string>{"ROOKIE", " YOUTH "}));
  test.app.state.category.overlay_caller.clear();
  FrmOverlay form{test.app};
  EXPECT_EQ(form.List1.items, std::vector<std::string>{"TB-WIRES"});
  EXPECT_EQ(form.caption, "CQ-WPX    CW");
}

TEST_F(Overlay, ClaimsTheChosenEntryAndForgetsItAgain) {
  FrmOverlay form{test.app};
  EXPECT_EQ(test.app.state.category.overlay_cat, "");
  EXPECT_FALSE(form.List1.visible);
  form.Option1.selected = 1;
  form.click("Option1", 1);
  EXPECT_TRUE(form.List1.visible);
  EXPECT_FALSE(form.cmdOK.enabled);
  form.List1.selected = 1;
  form.click("List1", 1);
  EXPECT_TRUE(form.cmdOK.enabled);
  form.click("cmdOK");
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(test.app.state.category.overlay_cat, "YOUTH");
  EXPECT_EQ(test.app.main.Label2.text, "CATEGORY-OVERLAY : YOUTH");
  EXPECT_TRUE(test.app.main.cmdReSet.enabled);

  FrmOverlay{test.app}.click("cmdOK");
  EXPECT_EQ(test.app.state.category.overlay_cat, "");
  EXPECT_EQ(test.app.main.Label2.text, "");
}

TEST_F(Overlay, AnEmptyListFileIsAnError) {
  test.folder.write("OVERLAY.txt", "");
  EXPECT_THROW(FrmOverlay{test.app}, ListFileError);
}

}  // namespace
}  // namespace varnisto::test
