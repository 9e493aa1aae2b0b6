#include "support/test_app.h"

#include "app/open_input.h"
#include "app/start_up.h"
#include "base/text.h"
#include "core/settings.h"

namespace varnisto::test {

int ScriptedDesk::message_box(const MessageBox& box) {
  boxes.push_back(box);
  return 1;
}

std::optional<std::string> ScriptedDesk::open_file_dialog(const OpenFileRequest& request) {
  open_requests.push_back(request);
  return next_file.empty() ? std::nullopt : std::optional{next_file};
}

void ScriptedDesk::show(FormName form) {
  forms.push_back(form);
  if (on_show) on_show(form);
}

void ScriptedDesk::text_shown(std::string_view text, Color) {
  if (!text.empty()) texts.emplace_back(text);
}

void ScriptedDesk::hourglass(bool on) {
  hourglass_on = on ? 1 : 0;
}

std::tm StoppedClock::now() const {
  std::tm stopped{};
  stopped.tm_year = 125;
  stopped.tm_mon = 10;
  stopped.tm_mday = 30;
  stopped.tm_hour = 12;
  stopped.tm_min = 34;
  stopped.tm_sec = 56;
  return stopped;
}

TestApp::TestApp() {
  folder.copy_from(source_dir("data"));
  std::filesystem::copy(source_dir("examples") / "Varnisto.ini", folder.path() + "Varnisto.ini");
}

void TestApp::start() {
  Main(app, folder.path());
  Form_Load(app);
}

void TestApp::open(const std::string& path) {
  open_chosen_file(app, path);
  app.outputs.commit();  // as at the end of the action
}

void TestApp::open_copy(const std::filesystem::path& logs, const std::string& log) {
  work.copy_from(logs);
  start();
  open(work.path() + log);
}

void TestApp::set(const std::string& key, const std::string& value) {
  const ProfileEntry entry{std::string{ini_section}, key, value};
  profile.set(folder.path() + "Varnisto.ini", {&entry, 1});
}

std::string all_line(const AllQso& qso) {
  struct Field {
    std::size_t column;
    const std::string& text;
  };
  std::string line;
  for (const Field& field : {Field{1, qso.date},
                             {12, qso.time},
                             {18, qso.call},
                             {31, qso.sent},
                             {34, qso.sent_exch},
                             {43, qso.rcvd},
                             {46, qso.rcvd_exch},
                             {55, qso.mult1},
                             {61, qso.mult2},
                             {67, qso.band},
                             {72, qso.mode},
                             {77, qso.points},
                             {80, qso.after},
                             {86, qso.memo}})
    if (!field.text.empty()) line = pad_right(line, field.column - 1) + field.text;
  return line;
}

}  // namespace varnisto::test
