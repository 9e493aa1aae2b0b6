#include <gtest/gtest.h>

#include "base/cp932.h"
#include "base/text.h"
#include "support/errors.h"
#include "support/test_app.h"
#include "ui/frm_web_url.h"

namespace varnisto::test {
namespace {

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
  form.Form_Load();
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
  EXPECT_TRUE(contains(error_text_of([&] { form.Form_Load(); }), "web_url.txt"));
}

}  // namespace
}  // namespace varnisto::test
