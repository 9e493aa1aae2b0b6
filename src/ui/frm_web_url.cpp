#include "ui/frm_web_url.h"

#include "base/fields.h"
#include "base/text.h"
#include "base/text_writer.h"
#include "core/lists.h"
#include "ui/main_menus.h"

namespace varnisto {

void write_link_page(TextReader links, LineSink& page) {
  page.put("<HTML><HEAD><TITLE>web_url.htm</TITLE>");
  page.put("<BODY vLink=#0000ff link=#0000ff bgColor=#ffffff>");
  page.put("<br><br>");
  FieldReader reader{std::move(links)};
  while (const auto first = reader.next()) {
    const auto text = reader.next();
    if (!text && first->empty()) break;  // an empty line at the end is no record
    if (!text) throw ListFileError(RunTimeError::past_end, reader.place());
    const std::string address = next_of_record(reader);
    if (is_blank(*text)) continue;
    page.put("<A HREF=\"" + address + "\">" + *text + "</A>");
    page.put("<br><br>");
  }
  page.put("<br><br>");
  page.put("</BODY></HTML>");
}

frmWeb_URL::frmWeb_URL(App& the_app, BrowserPane& pane) : AppForm(the_app), pane_(pane) {
  caption = " Web_URL";
  mnuMain.caption = "メイン画面へ";
  mnuGoBack.caption = "戻る";
  mnuGoForward.caption = "進む";
  on_click("mnuMain", [this](int) { mnuMain_Click(); });
  on_click("mnuGoBack", [this](int) { mnuGoBack_Click(); });
  on_click("mnuGoForward", [this](int) { mnuGoForward_Click(); });
}

std::vector<NamedControl> frmWeb_URL::controls() {
  return {{"mnuMain", &mnuMain}, {"mnuGoBack", &mnuGoBack}, {"mnuGoForward", &mnuGoForward}};
}

void frmWeb_URL::Form_Load() {
  app.trace.line("Private Sub Form_Load()_frmWeb_URL");
  const std::string& folder = app.state.program.app_dir;
  page = folder + "web_url.htm";
  TextReader links{folder + "web_url.txt"};
  TextWriter out{app.outputs.create(page)};
  write_link_page(std::move(links), out);
  out.close();
  commit_outputs(app);
  pane_.navigate(page);
}

void frmWeb_URL::mnuMain_Click() {
  app.trace.line("Private Sub mnuMain_Click()");
  closed = true;
}
void frmWeb_URL::mnuGoBack_Click() {
  app.trace.line("Private Sub mnuGoBack_Click()");
  pane_.go_back();
}
void frmWeb_URL::mnuGoForward_Click() {
  app.trace.line("Private Sub mnuGoForward_Click()");
  pane_.go_forward();
}

void frmWeb_URL::open_link(const std::string& address) {
  open_address(app, address);
}

}  // namespace varnisto
