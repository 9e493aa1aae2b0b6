#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <gtest/gtest.h>

#include "gui_driver.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

/// A started program with the shipped list files and settings.
struct ReadyProgram {
  ReadyProgram() { EXPECT_TRUE(program.start()); }
  TestApp prepared;  // for its folder
  const TempDir& folder = prepared.folder;
  GuiProgram program{folder.path()};
};

void type(const QWidget& window, const std::string& name, const std::string& text) {
  child<QLineEdit>(window, name).setText(QString::fromStdString(text));
}

bool may_open(GuiProgram& program) {
  return child<QMenu>(program.window(), "mnuOpen_file").menuAction()->isEnabled();
}

/// Fills the settings dialog and saves it.
void fill_settings(QWidget& dialog) {
  EXPECT_FALSE(child<QAbstractButton>(dialog, "cmdOK").isEnabled());
  for (const char* box :
       {"txtName", "txtAdd1", "txtAdd2", "txtAdd3", "txtJidx", "txtOperators", "txtMy_e_add"})
    type(dialog, box, "10");
  type(dialog, "txtCall", "qx1abc");
  EXPECT_EQ(child<QLineEdit>(dialog, "txtCall").text(), "QX1ABC");
  child<QAbstractButton>(dialog, "cmdSet_in_dir").click();
  child<QAbstractButton>(dialog, "cmdOK").click();
  EXPECT_EQ(child<QLabel>(dialog, "lblMsg").text(), "作成終了");
  child<QAbstractButton>(dialog, "cmdBack").click();
}

TEST(Story, FromFirstStartToTheNextDay) {
  TempDir folder, work;
  folder.copy_from(source_dir("data"));
  work.copy_from(source_dir("examples") / "cqww-cw");
  {
    GuiProgram program{folder.path()};
    ASSERT_TRUE(program.start());
    EXPECT_FALSE(may_open(program));
    program.next_file = work.path() + "QX1ABC.ALL";
    in_next_dialog(fill_settings);
    program.menu("mnuMake");
    EXPECT_TRUE(folder.has("Varnisto.ini"));
    ASSERT_TRUE(may_open(program));

    program.menu("mnuOpen_all");
    EXPECT_TRUE(child<QLabel>(program.window(), "lblIn").text().endsWith("QX1ABC.ALL"));
    program.click("Check9");
    program.click("kaishi");
    EXPECT_EQ(child<QLabel>(program.window(), "lblShori").text(), "処理終了");
    EXPECT_FALSE(program.boxes.empty());
    EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));

    program.menu("mnuDisp2_out1");
    EXPECT_TRUE(program.last_window().windowTitle().endsWith("QX1ABC.cbr"));
    const QListView& lines = child<QListView>(program.last_window(), "List1");
    EXPECT_EQ(lines.model()->index(lines.model()->rowCount() - 1, 0).data().toString(), "END-OF-LOG:");

    program.click("owari");
    EXPECT_TRUE(program.exited);
    EXPECT_FALSE(program.window().isVisible());
  }
  GuiProgram program{folder.path()};
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(child<QCheckBox>(program.window(), "Check9").isChecked());
  EXPECT_TRUE(may_open(program));
  program.menu("mnuRecent1");
  EXPECT_TRUE(child<QAbstractButton>(program.window(), "kaishi").isEnabled());
  program.window().close();  // the frame's button is the exit button
  EXPECT_TRUE(program.exited);
}

TEST(Story, FailureToLoadADialogGivesItUpWithAMessage) {
  ReadyProgram ready;
  GuiProgram& program = ready.program;
  std::filesystem::remove(ready.folder.path() + "JA_iota.txt");  // after the start-up check
  program.menu("mnuMake");
  ASSERT_EQ(program.boxes.size(), 1U);
  EXPECT_EQ(program.boxes.front().icon, Icon::critical);
  EXPECT_EQ(program.desk().views().size(), 1U);
  EXPECT_FALSE(program.exited);
}

TEST(Windows, HaveAWidgetForEveryControl) {
  for (const FormName& row : rows_of(FormName::select_cont, FormName::frmOVERLAY, FormName::Make_cfg,
                                     FormName::frmDisp2, FormName::frmWeb_URL, FormName::frmVer)) {
    ReadyProgram ready;
    GuiProgram& program = ready.program;
    EXPECT_EQ(program.desk().views().front()->binder().unbound(), std::vector<std::string>{});
    program.app().state.log.contest.cont_id = "CQ-WPX";
    program.app().state.log.input.in_name = (source_dir("examples") / "cqww-cw" / "QX1ABC.ALL").string();
    const Window window = make_window(row, program.app(), &program.window(), {});
    const Binder binder{*window.widget, *window.form, {}};
    EXPECT_EQ(binder.unbound(), std::vector<std::string>{});
  }
}

TEST(Viewer, FindsTextAndClosesWithItsMenu) {
  ReadyProgram ready;
  GuiProgram& program = ready.program;
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + " 日本\n";
  program.app().state.display.disp_name = ready.folder.write_text("long.txt", text);
  program.desk().show(FormName::frmDisp2);
  QWidget& viewer = program.last_window();
  child<QAction>(viewer, "action_find").trigger();
  type(viewer, "find_text", "LINE 777");
  child<QAbstractButton>(viewer, "find_next").click();
  EXPECT_EQ(child<QListView>(viewer, "List1").currentIndex().data().toString(), "line 777 日本");
  child<QAction>(viewer, "mnuBack").trigger();
  EXPECT_EQ(program.desk().views().size(), 1U);
}

}  // namespace
}  // namespace varnisto::test
