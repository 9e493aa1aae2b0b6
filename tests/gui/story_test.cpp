#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <gtest/gtest.h>

#include "gui_driver.h"
#include "support/rows.h"

namespace varnisto::test {
namespace {

/// The shipped list files and, unless the program has never run, settings.
void fill_program_folder(const TempDir& folder, bool settings) {
  folder.copy_from(source_dir("data"));
  if (settings)
    std::filesystem::copy(source_dir("examples") / "Varnisto.ini", folder.path() + "Varnisto.ini");
}

/// A started program with settings.
struct ReadyProgram {
  ReadyProgram() {
    fill_program_folder(folder, true);
    EXPECT_TRUE(program.start());
  }
  TempDir folder;
  GuiProgram program{folder.path()};
};

void type(const QWidget& window, const std::string& name, const std::string& text) {
  child<QLineEdit>(window, name).setText(QString::fromStdString(text));
}

bool menu_enabled(GuiProgram& program, const std::string& name) {
  return child<QMenu>(program.window(), name).menuAction()->isEnabled();
}

/// Fills the settings dialog with what the examples' settings hold, and saves it.
void fill_settings(QWidget& dialog) {
  EXPECT_FALSE(child<QAbstractButton>(dialog, "cmdOK").isEnabled());
  FileProfile profile;
  const std::string ini = (source_dir("examples") / "Varnisto.ini").string();
  const std::pair<const char*, const char*> boxes[] = {
      {"txtCall", "CALLSIGN"},   {"txtName", "NAME"},           {"txtAdd1", "ADDRESS1"},
      {"txtAdd2", "ADDRESS2"},   {"txtAdd3", "ADDRESS3"},       {"txtClub", "CLUB"},
      {"txtJidx", "JIDX_No"},    {"txtOperators", "OPERATORS"}, {"txtMy_e_add", "e_mail"},
      {"txtCom0", "COMMENTS_1"}, {"txtCom1", "COMMENTS_2"}};
  for (const auto& [box, key] : boxes) {
    SCOPED_TRACE(box);
    type(dialog, box, profile.get(ini, "Varnisto.ini", key));
  }
  type(dialog, "txtCall", "qx1abc");
  EXPECT_EQ(child<QLineEdit>(dialog, "txtCall").text(), "QX1ABC");
  EXPECT_EQ(child<QLabel>(dialog, "lblMsg").text(), "空白をあり");
  child<QAbstractButton>(dialog, "cmdSet_in_dir").click();
  EXPECT_EQ(child<QLabel>(dialog, "lblMsg").text(), "作成可能");
  child<QAbstractButton>(dialog, "cmdOK").click();
  EXPECT_EQ(child<QLabel>(dialog, "lblMsg").text(), "作成終了");
  child<QAbstractButton>(dialog, "cmdBack").click();
}

TEST(Story, FromFirstStartToTheNextDay) {
  TempDir folder, work;
  fill_program_folder(folder, false);
  work.copy_from(source_dir("examples") / "cqww-cw");
  const std::string log = work.path() + "QX1ABC.ALL";
  {
    GuiProgram program{folder.path()};
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(
        child<QPlainTextEdit>(program.window(), "Text1").toPlainText().contains("まだ作成されていません"));
    EXPECT_FALSE(menu_enabled(program, "mnuOpen_file"));

    program.next_file = log;
    in_next_dialog(fill_settings);
    program.menu("mnuMake");
    EXPECT_TRUE(folder.has("Varnisto.ini"));
    ASSERT_TRUE(menu_enabled(program, "mnuOpen_file"));

    program.menu("mnuOpen_all");
    EXPECT_TRUE(child<QLabel>(program.window(), "lblIn").text().endsWith("QX1ABC.ALL"));
    EXPECT_TRUE(child<QLabel>(program.window(), "lblGet_zsm4").text().contains("QX1ABC"));
    program.click("Check9");
    program.click("kaishi");
    EXPECT_EQ(child<QLabel>(program.window(), "lblShori").text(), "処理終了");
    EXPECT_FALSE(program.boxes.empty());
    EXPECT_TRUE(work.has("QX1ABC.cbr"));
    EXPECT_EQ(work.read("QX1ABC.cbr"), work.read("QX1ABC.log"));

    program.menu("mnuDisp2_out1");
    QWidget& viewer = program.last_window();
    EXPECT_TRUE(viewer.windowTitle().endsWith("QX1ABC.cbr"));
    QListView& lines = child<QListView>(viewer, "List1");
    EXPECT_EQ(lines.model()->index(0, 0).data().toString(), "START-OF-LOG: 3.0");
    EXPECT_EQ(lines.model()->index(lines.model()->rowCount() - 1, 0).data().toString(), "END-OF-LOG:");

    program.click("owari");
    EXPECT_TRUE(program.exited);
    EXPECT_FALSE(program.window().isVisible());
  }
  GuiProgram program{folder.path()};
  ASSERT_TRUE(program.start());
  EXPECT_TRUE(child<QCheckBox>(program.window(), "Check9").isChecked());
  EXPECT_TRUE(child<QAction>(program.window(), "mnuRecent1").text().contains("QX1ABC.ALL"));
  EXPECT_TRUE(menu_enabled(program, "mnuOpen_file"));
  program.menu("mnuRecent1");
  EXPECT_TRUE(child<QAbstractButton>(program.window(), "kaishi").isEnabled());
  program.window().close();  // the frame's button is the exit button
  EXPECT_TRUE(program.exited);
}

TEST(Story, LogWithoutSummaryAsksForTheContest) {
  TempDir folder, work;
  fill_program_folder(folder, true);
  std::filesystem::copy(source_dir("examples") / "cqww-cw" / "QX1ABC.ALL", work.path() + "QX1ABC.ALL");
  GuiProgram program{folder.path()};
  ASSERT_TRUE(program.start());
  program.next_file = work.path() + "QX1ABC.ALL";
  bool asked = false;
  in_next_dialog([&](QWidget& dialog) {
    asked = true;
    EXPECT_FALSE(child<QCheckBox>(dialog, "Check1").isEnabled());
    QListView& contests = child<QListView>(dialog, "List1");
    contests.setCurrentIndex(contests.model()->index(3, 0));
    child<QRadioButton>(dialog, "Option3_3").click();
    EXPECT_TRUE(child<QRadioButton>(dialog, "Option6_0").isChecked());
    child<QAbstractButton>(dialog, "cmdOK").click();
  });
  program.menu("mnuOpen_all");
  ASSERT_TRUE(asked);
  EXPECT_TRUE(child<QRadioButton>(program.window(), "Option3_3").isChecked());
  program.click("kaishi");
  const std::string cabrillo = work.read_text("QX1ABC.cbr");
  EXPECT_NE(cabrillo.find("CONTEST: CQ-WW-CW"), std::string::npos) << cabrillo;
  EXPECT_NE(cabrillo.find("CATEGORY-OPERATOR: MULTI-OP\n"), std::string::npos) << cabrillo;
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
