#include "ui/make_cfg.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "support/events.h"
#include "support/test_app.h"
#include "ui/main_window.h"

namespace varnisto::test {
namespace {

/// Types into a text box as a view does.
void type(Form& form, std::string_view box, std::string_view text) {
  form.find<TextBox>(box)->text = form.typed(box, text);
  form.change(box);
}

class SettingsDialog : public testing::Test {
 protected:
  SettingsDialog() {
    test.start();
    form.Form_Load();
  }
  TestApp test;
  Make_cfg form{test.app};
};

TEST_F(SettingsDialog, CallSignIsUpperCase) {
  EXPECT_EQ(form.typed("txtCall", "qx1abc/1{é"), "QX1ABC/1{é");
  EXPECT_EQ(form.typed("txtName", "Taro"), "Taro");
  form.txtCall.text = " qx9zz ";  // pasted past the key filter
  form.click("cmdOK");
  EXPECT_NE(test.folder.read_text("Varnisto.ini").find("CALLSIGN=QX9ZZ\n"), std::string::npos);
}

TEST_F(SettingsDialog, TextThatTheFileCannotHoldIsRefusedAndKept) {
  const std::string before = test.folder.read("Varnisto.ini");
  type(form, "txtCom3", "73 🎉");
  form.click("cmdOK");
  EXPECT_EQ(test.folder.read("Varnisto.ini"), before);
  EXPECT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_EQ(form.txtCom[3].text, "73 🎉");
  EXPECT_FALSE(form.closed);
}

TEST(FirstStart, SettingsDialogMakesTheMainWindowUsable) {
  TestApp test;
  std::filesystem::remove(test.folder.path() + "Varnisto.ini");
  Main(test.app, test.folder.path());
  MainWindow window{test.app};
  window.Form_Load();
  EXPECT_FALSE(test.app.main.mnuOpen_file.enabled);
  EXPECT_EQ(test.app.main.lblIn.color, Color::red);

  test.desk.on_show = [&](FormName) {
    Make_cfg form{test.app};
    form.Form_Load();
    EXPECT_FALSE(form.cmdOK.enabled);
    EXPECT_EQ(form.lblMsg.text, "作成必要");
    for (const std::string_view box : {"txtName", "txtAdd1", "txtAdd2", "txtOperators", "txtMy_e_add"})
      type(form, box, "mihon");
    type(form, "txtCall", "qx1abc");
    type(form, "txtJidx", "10");
    type(form, "txtSet_in_dir", "/logs/");
    EXPECT_TRUE(form.cmdOK.enabled);
    form.click("cmdOK");
    EXPECT_EQ(form.lblMsg.text, "作成終了");
    form.click("cmdBack");
    EXPECT_TRUE(form.closed);
  };
  click_in(test.app, window, "mnuMake");
  EXPECT_EQ(test.desk.forms, std::vector{FormName::Make_cfg});
  EXPECT_TRUE(test.app.main.mnuOpen_file.enabled);
  EXPECT_TRUE(test.app.main.mnuDisp.enabled);
  EXPECT_EQ(test.app.main.lblIn.text, "ﾒﾆｭｰより入力ﾌｧｲﾙを指定して下さい");
  EXPECT_EQ(test.app.state.display.text, "");

  test.work.copy_from(source_dir("examples/cqww-cw"));
  hand_in(test.app, window, [&] { window.open_dropped_file(test.work.path() + "QX1ABC.ALL"); });
  EXPECT_TRUE(test.app.main.kaishi.enabled);
}

TEST(SettingsFileOfDialog, SavingRetiresTheLegacyFile) {
  StartedApp test;
  test.folder.write_text("Varnisto.cfg", "CALLSIGN:QX1ABC\n");
  test.folder.write_text("Varnisto_old.cfg", "older\n");
  Make_cfg form{test.app};
  form.Form_Load();
  form.click("cmdOK");
  EXPECT_FALSE(test.folder.has("Varnisto.cfg"));
  EXPECT_EQ(test.folder.read_text("Varnisto_old.cfg"), "CALLSIGN:QX1ABC\n");
}

}  // namespace
}  // namespace varnisto::test
