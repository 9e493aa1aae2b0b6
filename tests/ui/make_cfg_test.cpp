#include "ui/make_cfg.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "app/start_up.h"
#include "base/run_time_error.h"
#include "support/rows.h"
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
    form.load();
  }
  TestApp test;
  Make_cfg form{test.app};
};

TEST(RequiredField, BlocksSavingWhileItIsBlank) {
  for (const auto& [box, label] :
       texts_of<2>("txtCall|lblCall", "txtName|lblName", "txtAdd1|lblAdd1", "txtAdd2|lblAdd2",
                   "txtOperators|lblOperators", "txtJidx|lblJidx", "txtMy_e_add|lblMy_e_add",
                   "txtSet_in_dir|lblSet_in_dir", "txtE_Add2_to|lblE_Add2_to", "txtE_add2|lblE_add2")) {
    SCOPED_TRACE(box);
    StartedApp test;
    test.app.state.settings.e_add2_use_flag = "1";
    test.app.state.settings.e_add2 = test.app.state.settings.e_add2_to = "second";
    Make_cfg form{test.app};
    form.load();
    ASSERT_EQ(form.lblMsg.text, "作成可能");
    ASSERT_TRUE(form.cmdOK.enabled);

    type(form, box, "  ");
    EXPECT_EQ(form.ng_count, 1);
    EXPECT_FALSE(form.cmdOK.enabled);
    EXPECT_EQ(form.lblMsg.text, "空白をあり");
    EXPECT_EQ(form.lblMsg.color, Color::red);
    EXPECT_EQ(form.find<Label>(label)->color, Color::red);
    const std::string before = test.folder.read("Varnisto.ini");
    form.click("cmdOK");
    EXPECT_EQ(test.folder.read("Varnisto.ini"), before);

    type(form, box, "x");
    EXPECT_EQ(form.find<Label>(label)->color, Color::black);
    EXPECT_EQ(form.lblMsg.text, "作成可能");
  }
}

TEST_F(SettingsDialog, SecondRecipientCountsOnlyWhileTicked) {
  EXPECT_TRUE(form.cmdOK.enabled);
  form.Check1.checked = true;
  form.click("Check1");
  EXPECT_EQ(form.ng_count, 2);
  EXPECT_EQ(form.lblE_add2.color, Color::red);
  form.Check1.checked = false;
  form.click("Check1");
  EXPECT_EQ(form.ng_count, 0);
  EXPECT_EQ(form.lblE_add2.color, Color::black);
}

TEST_F(SettingsDialog, EditorMustExistOnlyWhileItIsInUse) {
  type(form, "txtPad", "/no/such/editor");
  EXPECT_TRUE(form.cmdOK.enabled);
  test.app.state.program.editor_on = 1;
  type(form, "txtPad", "/no/such/editor");
  EXPECT_FALSE(form.cmdOK.enabled);
  EXPECT_EQ(form.Label4.text, "再セット必要");
  test.desk.next_file = test.folder.path() + "Varnisto.ini";
  form.click("Command1");
  EXPECT_TRUE(form.cmdOK.enabled);
  EXPECT_EQ(form.Label4.text, "");
  EXPECT_EQ(test.app.state.settings.dir_pad, test.desk.next_file);
}

TEST_F(SettingsDialog, CallSignIsUpperCase) {
  EXPECT_EQ(form.typed("txtCall", "qx1abc/1{é"), "QX1ABC/1{é");
  EXPECT_EQ(form.typed("txtName", "Taro"), "Taro");
  form.txtCall.text = " qx9zz ";  // pasted past the key filter
  form.click("cmdOK");
  EXPECT_NE(test.folder.read_text("Varnisto.ini").find("CALLSIGN=QX9ZZ\n"), std::string::npos);
}

TEST(InputFolder, IsTheFolderOfTheChosenFile) {
  struct Row {
    std::string path, folder;
  };
  for (const Row& row :
       rows_of(Row{"/logs/2003/QX1ABC.ALL", "/logs/2003/"},
               Row{"/" + std::string(100, 'a') + "/b/" + std::string(30, 'c'),
                   "/" + std::string(100, 'a') + "/b/"},
               Row{"/a/" + std::string(120, 'b') + "/c.all", "/a/"}, Row{"QX1ABC.ALL", ""})) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(folder_of_choice(row.path), row.folder);
  }
}

TEST(SettingsFileOfDialog, IslandIsChosenFromTheList) {
  TestApp test;
  test.set("op_iota_island", "Sado");
  test.folder.write_text("JA_iota.txt", "AS-007,Honshu Island\nAS-117,Sado East\nAS-206,Sado West\n");
  test.start();
  Make_cfg form{test.app};
  form.load();
  EXPECT_EQ(form.List1.selected, 2);
  form.List1.selected = 0;
  form.click("List1");
  EXPECT_EQ(form.lblIota.text, "Honshu Island");
  EXPECT_EQ(form.Option1.selected, -1);
  form.click("Option1");
  EXPECT_EQ(form.Option1.selected, 0);
  EXPECT_EQ(form.Option1.options[0].color, Color::blue);
  form.click("cmdOK");
  const std::string ini = test.folder.read_text("Varnisto.ini");
  EXPECT_NE(ini.find("op_iota_island=Honshu Island\n"), std::string::npos);
  EXPECT_NE(ini.find("iota_name_only=1\n"), std::string::npos);
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
  window.load();
  EXPECT_FALSE(test.app.main.mnuOpen_file.enabled);
  EXPECT_EQ(test.app.main.lblIn.color, Color::red);

  test.desk.on_show = [&](FormName) {
    Make_cfg form{test.app};
    form.load();
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
  window.click("mnuMake");
  EXPECT_EQ(test.desk.forms, std::vector{FormName::Make_cfg});
  EXPECT_TRUE(test.app.main.mnuOpen_file.enabled);
  EXPECT_TRUE(test.app.main.mnuDisp.enabled);
  EXPECT_EQ(test.app.state.input.in_err_flag, 0);
  EXPECT_EQ(test.app.main.lblIn.text, "ﾒﾆｭｰより入力ﾌｧｲﾙを指定して下さい");
  EXPECT_EQ(test.app.main.Text1.text, "");

  test.work.copy_from(source_dir("examples/cqww-cw"));
  window.open_dropped_file(test.work.path() + "QX1ABC.ALL");
  EXPECT_TRUE(test.app.main.kaishi.enabled);
}

TEST(SettingsFileOfDialog, SavingRetiresTheLegacyFile) {
  StartedApp test;
  test.folder.write_text("Varnisto.cfg", "CALLSIGN:QX1ABC\n");
  test.folder.write_text("Varnisto_old.cfg", "older\n");
  Make_cfg form{test.app};
  form.load();
  form.click("cmdOK");
  EXPECT_FALSE(test.folder.has("Varnisto.cfg"));
  EXPECT_EQ(test.folder.read_text("Varnisto_old.cfg"), "CALLSIGN:QX1ABC\n");
}

}  // namespace
}  // namespace varnisto::test
