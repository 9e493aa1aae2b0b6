#include <gtest/gtest.h>

#include "base/cp932.h"
#include "base/text.h"
#include "support/rows.h"
#include "support/test_app.h"
#include "ui/frm_disp2.h"
#include "ui/frm_ver.h"
#include "ui/frm_web_url.h"

namespace varnisto::test {
namespace {

TEST(FindLine, GoesRoundTheFileOnce) {
  struct Row {
    std::string name, text;
    std::size_t from;
    Direction direction;
    std::optional<std::size_t> line;
  };
  for (const Row& row : rows_of(
           Row{"FirstLineCounts", "qso", 0, Direction::down, 0}, Row{"Down", "qso", 1, Direction::down, 2},
           Row{"Wraps", "qso", 3, Direction::down, 0},
           Row{"BehindTheEndIsTheBegin", "QSO", 4, Direction::down, 0}, Row{"Up", "qso", 1, Direction::up, 0},
           Row{"UpWraps", "END", 2, Direction::up, 3}, Row{"Japanese", "東京 QX9", 0, Direction::down, 2},
           Row{"NoSuchText", "JIDX", 0, Direction::up, std::nullopt},
           Row{"EmptyTextFindsNothing", "", 0, Direction::down, std::nullopt})) {
    SCOPED_TRACE(row.name);
    TextLines lines;
    for (const char* line : {"QSO: QX1ABC", "", "qso: 東京 qx9def", "END"}) lines.add(line);
    EXPECT_EQ(find_line(lines, row.text, row.from, row.direction), row.line);
  }
}

TEST(TextViewer, ShowsTheFileAndStepsThroughTheHits) {
  TestApp test;
  test.app.state.display.disp_name = test.folder.write_text("a.log", "一\nQX1\n\nQX2\n");
  frmDisp2 form{test.app};
  form.load();
  EXPECT_EQ(form.caption, test.folder.path() + "a.log");
  ASSERT_EQ(form.lines().size(), 4U);
  EXPECT_EQ(form.lines().line(0), "一");
  EXPECT_TRUE(form.find_text("qx", Direction::down));
  EXPECT_EQ(form.selected(), 1U);
  EXPECT_TRUE(form.find_text("qx", Direction::down));
  EXPECT_EQ(form.selected(), 3U);
  EXPECT_TRUE(form.find_text("qx", Direction::up));
  EXPECT_EQ(form.selected(), 1U);
  form.select(0);
  EXPECT_TRUE(form.find_text("qx", Direction::up));
  EXPECT_EQ(form.selected(), 3U);
}

TEST(TextViewer, MissingFileGivesAnEmptyList) {
  TestApp test;
  test.app.state.display.disp_name = test.folder.path() + "gone.log";
  frmDisp2 form{test.app};
  form.load();
  EXPECT_EQ(form.lines().size(), 0U);
  EXPECT_FALSE(form.find_text("x", Direction::up));
  EXPECT_FALSE(form.closed);
}

struct SilentPane final : BrowserPane {
  std::vector<std::string> calls;
  void navigate(const std::string& path) override { calls.push_back(path); }
  void go_back() override { calls.emplace_back("back"); }
  void go_forward() override { calls.emplace_back("forward"); }
};

TEST(LinkPage, IsWrittenFromTheList) {
  StartedApp test;
  test.folder.write_text("web_url.txt",
                         "1,日本 <b>,https://a.example/\n2,  ,https://skipped.example/\n"
                         "3,\"A, B\",\"https://b.example/?x,y\"\n\n");
  SilentPane pane;
  frmWeb_URL form{test.app, pane};
  form.load();
  EXPECT_EQ(test.folder.read("web_url.htm"), to_cp932("<HTML><HEAD><TITLE>web_url.htm</TITLE>\r\n"
                                                      "<BODY vLink=#0000ff link=#0000ff bgColor=#ffffff>\r\n"
                                                      "<br><br>\r\n"
                                                      "<A HREF=\"https://a.example/\">日本 <b></A>\r\n"
                                                      "<br><br>\r\n"
                                                      "<A HREF=\"https://b.example/?x,y\">A, B</A>\r\n"
                                                      "<br><br>\r\n"
                                                      "<br><br>\r\n"
                                                      "</BODY></HTML>\r\n"));
  form.click("mnuGoBack");
  form.click("mnuGoForward");
  EXPECT_EQ(pane.calls, (std::vector<std::string>{test.folder.path() + "web_url.htm", "back", "forward"}));
  form.open_link("https://a.example/");
  EXPECT_EQ(test.launcher.started, std::vector<std::string>{"browser https://a.example/"});
  form.click("mnuMain");
  EXPECT_TRUE(form.closed);
}

TEST(LinkPage, HalfARecordIsReported) {
  StartedApp test;
  test.folder.write_text("web_url.txt", "1,text\n");
  SilentPane pane;
  frmWeb_URL form{test.app, pane};
  form.load();
  EXPECT_TRUE(form.closed);
  ASSERT_EQ(test.desk.boxes.size(), 1U);
  EXPECT_NE(test.desk.boxes[0].text.find("web_url.txt"), std::string::npos);
}

}  // namespace
}  // namespace varnisto::test
