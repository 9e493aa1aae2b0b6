#include "app/driver.h"

#include "app/checker.h"
#include "app/debug_log.h"
#include "app/later_steps.h"
#include "app/zlo_log.h"
#include "base/files.h"
#include "base/text.h"
#include "cabrillo/adif.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qtc_log.h"
#include "cabrillo/qtc_merge.h"
#include "cabrillo/to_zlog.h"
#include "cabrillo/writer.h"
#include "core/contests.h"
#include "core/lists.h"
#include "core/paths.h"
#include "core/settings.h"
#include "mail/send_add.h"

namespace varnisto {
namespace {

bool is_of(const App& app, ContestFamily family) {
  return family_of(app.state.log.contest.cont_id) == family;
}

void write_iota_log(App& app) {
  const InputKind kind = app.state.log.input.in_kind;
  if (kind == InputKind::zlog_zlo) Make_zlo2all_iota(app);
  if (!names_of(kind).is_ccc) zlog_all_za2c_print_iota(app);
}

/// Runs the writer that kind of input, contest and source of the category call for.
void write_log(App& app) {
  if (is_of(app, ContestFamily::iota)) return write_iota_log(app);
  const bool logger_summary = app.state.log.contest.select_from == SelectFrom::zlog_zsm;
  switch (app.state.log.input.in_kind) {
    case InputKind::zlog_all:
      return logger_summary ? zlog_all_zsm_print(app) : zlog_all_za2c_print(app);
    case InputKind::zlog_zlo:
      if (logger_summary) Make_zlo2all(app);
      return zlog_all_za2c_print(app);
    case InputKind::ccc_txt:
    case InputKind::ccc_bin:
      return ccc_txt(app);
    case InputKind::none:
    case InputKind::cabrillo:
      throw Refusal("ログが開かれていません。");
  }
}

std::string address_of(const App& app, std::string_view contest) {
  const MailAddress* address = find_mail_address(app, contest);
  return address ? address->address : "";
}

void show_jidx_notice(App& app) {
  message_box(app, {lines({"Ｊ Ｉ ＤＸコンテストの時には下記を良く確認して下さい。",
                           "",
                           "JAPAN INTERNATIONAL DX CONTEST",
                           "",
                           "   　　　　　   　C Wの時は　　　:　JIDX-CW",
                           "",
                           "    　　　  　　  SSBの時は　　　:   JIDX-PH",
                           "",
                           "",
                           "CATEGORY：              HIGH       LOW",
                           "",
                           "             All　Band      AB         ABL",
                           "",
                           "                  7　MHz        7          7L",
                           "",
                           "                14　MHz       14         14L",
                           "",
                           "　　　　　　　　　　　　．．．．のようになります。",
                           "",
                           "JIDX-CW :   " + address_of(app, "JIDX-CW"),
                           "",
                           "JIDX-PH :   " + address_of(app, "JIDX-PH"),
                           ""}),
                    "　　Ｊ Ｉ ＤＸ　時 の 注 意 事 項。", Icon::exclamation});
}

void show_closing_notice(App& app) {
  message_box(app, {lines({"作成された Cabrillo ファイルは必ずしも正確とは限りません！", "",
                           "Ｃａｂｒｉｌｌｏファイルを送付する前には必ず", "",
                           "作成されたファイル内容を良く確認して下さい。", "",
                           "各コンテストのホームページでのルールの再確認も重要です。", "", ""}),
                    "　　提 出 前 の 注 意 事 項", Icon::exclamation});
}

void make_second_copy(App& app) {
  InputState& input = app.state.log.input;
  const std::string_view name = file_part(input.out_name);
  if (contains(name, ".cbr"))
    input.log_name = replace_in_name(input.out_name, ".cbr", ".log");
  else if (contains(name, ".log"))
    input.log_name = replace_in_name(input.out_name, ".log", ".cbr");
  else
    return;
  copy_file(app.outputs.current(input.out_name), app.outputs.create(input.log_name));
  input.outputs.push_back(input.log_name);
}

void begin_debug_log(App& app) {
  if (app.trace.debug_flag != 1) return;
  close_debug_log(app);
  open_debug_log(app);
  app.trace.line("入力ファイル ： " + app.state.log.input.in_name);
  app.trace.line("Private Sub Kaishi_Click()");
}

/// The steps that the check boxes ask for, on the log that was written.
void run_options(App& app) {
  const Settings& settings = app.state.settings;
  if (settings.jst_to_utc_flag) conv_J2U(app);
  if (settings.for_eqsl_flag) is_of(app, ContestFamily::iota) ? conv_eqsl_iota(app) : conv_eqsl(app);
}

void run_contest_steps(App& app) {
  if (!is_of(app, ContestFamily::waedc)) return;
  WAEDC_put(app);
  get_qtc(app);
}

/// The run is done: everything that was written takes its name.
void end_run(App& app) {
  const InputState& input = app.state.log.input;
  if (input.qsos_written == 0) throw Refusal(std::string{no_qso_text});
  if (input.in_kind == InputKind::zlog_zlo) note_zlo_records(app);
  commit_outputs(app, {input.out_name, input.log_name});
  const std::string work_file = input.out_dir + "in_name.000";  // of an earlier program
  if (!delete_if_file(work_file)) add_notice(app, kept_file_text(work_file));
  app.desk.hourglass(false);
  app.state.display.progress = Progress::done;
  app.trace.line("正常終了");
}

/// The window's text box tells the notes too; the command line has its report.
void append_notes(App& app) {
  std::string& text = app.state.display.text;
  for (const Note& note : app.state.log.notes.all())
    text.append(text.empty() ? "" : "\r\n").append(note_text(note));
}

void show_boxes(App& app) {
  show_notices(app);
  if (is_of(app, ContestFamily::jidx) && app.state.settings.jidx_no_disp_flag == 0) show_jidx_notice(app);
  show_closing_notice(app);
}

/// While this lives the start button is off; a run that fails can be started again.
class StartButtonOff {
 public:
  explicit StartButtonOff(App& app) : button_(app.main.kaishi) { button_.enabled = false; }
  ~StartButtonOff() { button_.enabled = true; }
  StartButtonOff(const StartButtonOff&) = delete;
  StartButtonOff& operator=(const StartButtonOff&) = delete;

 private:
  Button& button_;
};

}  // namespace

void kaishi_1(App& app) {
  const StartButtonOff while_running{app};
  begin_debug_log(app);
  app.desk.hourglass(true);
  app.state.display.progress = Progress::none;
  write_current_settings(app);
  clear_text(app);

  write_log(app);
  run_options(app);
  send_add(app);
  if (app.state.settings.pad_use_flag) app.main.mnu_mc.enabled = true;
  run_contest_steps(app);
  make_second_copy(app);
  const CheckResult check = check_Cabrillo_sub(app);
  app.state.log.input.check_findings = check.findings;
  app.state.log.input.finding_count = check.finding_count;

  end_run(app);
  append_notes(app);
  show_boxes(app);
  show_check_report(app, check);
}

void kaishi_Click(App& app) {
  if (app.state.log.input.in_kind != InputKind::cabrillo) return kaishi_1(app);
  const StartButtonOff while_running{app};
  cbr_2_zlog_txt(app);
  append_notes(app);
}

}  // namespace varnisto
