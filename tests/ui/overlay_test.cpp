#include <gtest/gtest.h>

#include "core/lists.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/frm_overlay.h"

namespace varnisto::test {
namespace {

TEST(OverlayKey, FollowsContestAndMode) {
  EXPECT_EQ(overlay_key_of("CQ-WPX", Mode::ssb), "CQ-WPX-SSB");
  EXPECT_EQ(overlay_key_of("CQ WPX Contest", Mode::cw), "CQ-WPX-CW");
  EXPECT_EQ(overlay_key_of("CQWPX", Mode::rtty), "CQ-WPX");
  EXPECT_EQ(overlay_key_of("CQ-WPX", std::nullopt), "CQ-WPX");
}

class Overlay : public testing::Test {
 protected:
  Overlay() {
    test.folder.write_text("OVERLAY.txt", "CQ-WPX-CW,TB-WIRES\nCQ-WPX-SSB,ROOKIE\nCQ-WPX-SSB,\" YOUTH \"\n");
    test.start();
    test.app.state.log.contest.cont_id = "CQ-WPX";
    test.app.state.log.category.overlay_caller = OverlayCaller::select_cont;
    test.app.state.entry.mode = Mode::ssb;
  }
  TestApp test;
};

TEST_F(Overlay, ListsTheOffersOfTheDialogsMode) {
  test.app.state.log.category.zsm_mode = Mode::cw;
  frmOVERLAY form{test.app};
  form.Form_Load();
  EXPECT_EQ(form.List1.items, (std::vector<std::string>{"ROOKIE", " YOUTH "}));
  EXPECT_EQ(form.caption, "CQ-WPX    PH");
  test.app.state.log.category.overlay_caller = OverlayCaller::summary;
  form.Form_Load();
  EXPECT_EQ(form.List1.items, std::vector<std::string>{"TB-WIRES"});
  EXPECT_EQ(form.caption, "CQ-WPX    CW");
}

TEST_F(Overlay, ClaimsTheChosenEntryAndForgetsItAgain) {
  frmOVERLAY form{test.app};
  form.Form_Load();
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
  EXPECT_EQ(test.app.state.entry.overlay_cat, "YOUTH");
  EXPECT_TRUE(test.app.main.cmdReSet.enabled);

  for (const char* button : {"cmdOK", "cmdBack"}) {
    test.app.state.entry.overlay_cat = "old";
    frmOVERLAY again{test.app};
    again.Form_Load();
    again.click(button);
    EXPECT_EQ(test.app.state.entry.overlay_cat, "");
  }
}

TEST_F(Overlay, AnEmptyListFileIsAnError) {
  test.folder.write("OVERLAY.txt", "");
  frmOVERLAY form{test.app};
  EXPECT_THROW(form.Form_Load(), ListFileError);
}

}  // namespace
}  // namespace varnisto::test
