#include "ui/make_cfg.h"

#include <algorithm>
#include <utility>

#include "app/start_up.h"
#include "base/cp932.h"
#include "base/fields.h"
#include "base/files.h"
#include "base/os.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "core/paths.h"
#include "core/settings.h"
#include "core/version.h"

namespace varnisto {
namespace {

using S = Settings;

/// A text box and the setting that it edits.
struct Field {
  TextBox Make_cfg::*box;
  std::string Settings::*setting;
};
constexpr Field fields[] = {
    {&Make_cfg::txtCall, &S::mycall},         {&Make_cfg::txtName, &S::my_name},
    {&Make_cfg::txtAdd1, &S::address1},       {&Make_cfg::txtAdd2, &S::address2},
    {&Make_cfg::txtAdd3, &S::address3},       {&Make_cfg::txtClub, &S::club},
    {&Make_cfg::txtOperators, &S::operators}, {&Make_cfg::txtJidx, &S::jidx_no},
    {&Make_cfg::txtPad, &S::dir_pad},         {&Make_cfg::txtMy_e_add, &S::e_mail},
    {&Make_cfg::txtE_Add2_to, &S::e_add2_to}, {&Make_cfg::txtE_add2, &S::e_add2},
    {&Make_cfg::txtEQSL_Comm, &S::eqslcom},   {&Make_cfg::txtSet_in_dir, &S::set_in_dir}};
constexpr std::string Settings::*comments[] = {&S::comments_1, &S::comments_2, &S::comments_3,
                                               &S::comments_4, &S::comments_5, &S::comments_6};
constexpr std::string_view comment_boxes[] = {"txtCom0", "txtCom1", "txtCom2",
                                              "txtCom3", "txtCom4", "txtCom5"};
constexpr std::string_view comment_labels[] = {"lblCom0", "lblCom1", "lblCom2",
                                               "lblCom3", "lblCom4", "lblCom5"};

/// A required field: its label is red while it is empty.
void check_field(const TextBox& box, Label& label, std::int16_t& flag) {
  flag = is_blank(box.text) ? 1 : 0;
  label.color = flag == 1 ? Color::red : Color::black;
}

void show(Label& label, std::string_view text, Color color) {
  label.text = text;
  label.color = color;
}

/// True when the settings file can hold the text.
bool fits_file(std::string_view text) {
  try {
    to_cp932(text);
    return std::ranges::none_of(text, is_control);
  } catch (const RunTimeError&) {
    return false;
  }
}

/// The name in a line of the island list: its second field.
std::string island_name(std::string_view line) {
  std::string field;
  if (!take_field(line, field)) return "";
  take_field(line, field);
  return field;
}

}  // namespace

char txtcall_KeyPress(char key) {
  return key >= 'a' && key <= 'z' ? static_cast<char>(key & 223) : key;
}

std::string folder_of_choice(std::string_view path) {
  return std::string{folder_part(trim(cp932_prefix(path, 120)))};
}

Make_cfg::Make_cfg(App& the_app) : AppForm(the_app) {
  lblCall.text = "Call Sign ：";
  lblName.text = "Ｎａｍｅ    ：";
  lblAdd1.text = "Address1 ：";
  lblAdd2.text = "Address2 ：";
  lblAdd3.text = "Address3 ：";
  lblClub.text = "Club Name ：";
  lblOperators.text = "Operators  ：";
  lblJidx.text = varnisto::lines({"J I D X  Contest (JA) の時の", "県ナンバー"});
  lblPad.text = varnisto::lines({"使用する", "エディタ のある フォルダ"});
  lblMy_e_add.text = "e-mail address";
  lblE_Add2_to.text = varnisto::lines({"宛先名", "第２"});
  lblE_add2.text = "e-mail add 第２";
  lblSet_in_dir.text = "Set In File DIR";
  lblEQSL_Comm.text = "eQSL Comm ：";
  for (std::size_t i = 0; i < lblCom.size(); ++i)
    lblCom[i].text = "Comments " + std::to_string(i + 1) + " ：";
  Check1.caption = "使用する";
  Check2.caption = "J I D X  の終了時 Ｍｓｇ を非表示にする。";
  Option1 = option_group("", {varnisto::lines({"Cabrillo への転記は", "島名", "のみとする"})});
  List1.tip = "選択してクリックで青地に白抜き文字にして下さい";
  Command1.caption = "選択";
  Command1.tip = "Editor のフォルダを選択・指定します。";
  cmdSet_in_dir.caption = " Set        in   ";
  cmdSet_in_dir.tip = "入力ファイルの初期フォルダの設定をします。";
  cmdOK.caption = "Ｏ Ｋ";
  cmdOK.tip = "個人情報を Varnisto.ini に保存します";
  cmdBack.caption = "戻る";
  cmdBack.tip = "メイン画面に戻ります";
  bind_events();
}

void Make_cfg::bind_events() {
  on_click("cmdOK", [this](int) { cmdOK_Click(); });
  on_click("cmdBack", [this](int) { cmdBack_Click(); });
  on_click("cmdSet_in_dir", [this](int) { cmdSet_in_dir_Click(); });
  on_click("Command1", [this](int) { Command1_Click(); });
  on_click("Check1", [this](int) { Check1_Click(); });
  on_click("Check2", [this](int) { Check2_Click(); });
  on_click("Option1", [this](int) { Option1_Click(); });
  on_click("List1", [this](int) { List1_Click(); });
  const auto checked = [this](std::string_view box, void (Make_cfg::*check)()) {
    on_change(box, [this, check](int) {
      (this->*check)();
      sp_flag_Chk();
    });
  };
  checked("txtAdd1", &Make_cfg::Add1_Chk);
  checked("txtAdd2", &Make_cfg::Add2_Chk);
  checked("txtCall", &Make_cfg::Call_Chk);
  checked("txtName", &Make_cfg::Name_Chk);
  checked("txtOperators", &Make_cfg::Op_Chk);
  checked("txtJidx", &Make_cfg::Jidx_Chk);
  checked("txtSet_in_dir", &Make_cfg::set_in_dir_Chk);
  checked("txtPad", &Make_cfg::Pad_Chk);
  checked("txtMy_e_add", &Make_cfg::My_e_add_Chk);
  checked("txtE_Add2_to", &Make_cfg::e_add2_to_Chk);
  checked("txtE_add2", &Make_cfg::e_add2_Chk);
}

std::vector<NamedControl> Make_cfg::controls() {
  std::vector<NamedControl> all = {{"txtCall", &txtCall},
                                   {"txtName", &txtName},
                                   {"txtAdd1", &txtAdd1},
                                   {"txtAdd2", &txtAdd2},
                                   {"txtAdd3", &txtAdd3},
                                   {"txtClub", &txtClub},
                                   {"txtOperators", &txtOperators},
                                   {"txtJidx", &txtJidx},
                                   {"txtPad", &txtPad},
                                   {"txtMy_e_add", &txtMy_e_add},
                                   {"txtE_Add2_to", &txtE_Add2_to},
                                   {"txtE_add2", &txtE_add2},
                                   {"txtSet_in_dir", &txtSet_in_dir},
                                   {"txtEQSL_Comm", &txtEQSL_Comm},
                                   {"lblCall", &lblCall},
                                   {"lblName", &lblName},
                                   {"lblAdd1", &lblAdd1},
                                   {"lblAdd2", &lblAdd2},
                                   {"lblAdd3", &lblAdd3},
                                   {"lblClub", &lblClub},
                                   {"lblOperators", &lblOperators},
                                   {"lblJidx", &lblJidx},
                                   {"lblPad", &lblPad},
                                   {"lblMy_e_add", &lblMy_e_add},
                                   {"lblE_Add2_to", &lblE_Add2_to},
                                   {"lblE_add2", &lblE_add2},
                                   {"lblSet_in_dir", &lblSet_in_dir},
                                   {"lblEQSL_Comm", &lblEQSL_Comm},
                                   {"lblIota", &lblIota},
                                   {"lblMsg", &lblMsg},
                                   {"lblVer", &lblVer},
                                   {"Label4", &Label4},
                                   {"Command1", &Command1},
                                   {"cmdSet_in_dir", &cmdSet_in_dir},
                                   {"cmdOK", &cmdOK},
                                   {"cmdBack", &cmdBack},
                                   {"Check1", &Check1},
                                   {"Check2", &Check2},
                                   {"Option1", &Option1},
                                   {"List1", &List1}};
  for (std::size_t i = 0; i < txtCom.size(); ++i) {
    all.push_back({comment_boxes[i], &txtCom[i]});
    all.push_back({comment_labels[i], &lblCom[i]});
  }
  return all;
}

std::string Make_cfg::typed(std::string_view name, std::string_view text) const {
  std::string result{left(text, longest_setting)};
  if (name == "txtCall")
    for (char& key : result) key = txtcall_KeyPress(key);
  return result;
}

// ---- loading ----

void Make_cfg::Form_Load() {
  app.trace.line("Private Sub Form_Load()_Make_cfg");
  draft_ = app.state.settings;
  if (!app.platform.profile.exists(ini_path(app)) && file_exists(legacy_path(app)))
    read_Varnisto_cfg(app, draft_);
  ng_count = 0;
  lblVer.text = "Varnisto.ini for Varnisto.exe  ver " + std::string{program_version};
  caption = app.state.program.ini_name + " 環境設定 ";
  settle_old_settings(draft_, app.platform.profile.exists(ini_path(app)));
  fill_islands();
  show_island_option();
  fill_fields();
  check_all();
  sp_flag_Chk();
  if (ng_count > 0) {
    cmdOK.enabled = false;
    show(lblMsg, "作成必要", Color::red);
  }
}

void Make_cfg::fill_islands() {
  List1.items.clear();
  List1.selected = 0;
  TextReader reader{app.state.program.app_dir + "JA_iota.txt"};
  for (std::string_view line; reader.next(line);) {
    if (contains(line, draft_.op_iota_island)) List1.selected = static_cast<int>(List1.items.size());
    List1.items.emplace_back(line);
  }
  if (List1.items.empty()) List1.selected = -1;
}

void Make_cfg::fill_fields() {
  for (const Field& field : fields) (this->*field.box).text = draft_.*field.setting;
  for (std::size_t i = 0; i < txtCom.size(); ++i) txtCom[i].text = draft_.*comments[i];
  txtJidx.text = trim(draft_.jidx_no);
  lblIota.text = draft_.op_iota_island;
  Check1.checked = draft_.e_add2_use_flag;
  Check2.checked = draft_.jidx_no_disp_flag != 0;
}

void Make_cfg::show_island_option() {
  Option1.select(draft_.iota_name_only ? 0 : -1);
}

void Make_cfg::check_all() {
  for (void (Make_cfg::*check)() :
       {&Make_cfg::Add1_Chk, &Make_cfg::Add2_Chk, &Make_cfg::Call_Chk, &Make_cfg::Name_Chk, &Make_cfg::Op_Chk,
        &Make_cfg::Jidx_Chk, &Make_cfg::set_in_dir_Chk, &Make_cfg::Pad_Chk, &Make_cfg::My_e_add_Chk,
        &Make_cfg::e_add2_to_Chk, &Make_cfg::e_add2_Chk})
    (this->*check)();
}

// ---- checks ----

void Make_cfg::Add1_Chk() {
  check_field(txtAdd1, lblAdd1, add1_ng);
}
void Make_cfg::Add2_Chk() {
  check_field(txtAdd2, lblAdd2, add2_ng);
}
void Make_cfg::Call_Chk() {
  check_field(txtCall, lblCall, call_ng);
}
void Make_cfg::Name_Chk() {
  check_field(txtName, lblName, name_ng);
}
void Make_cfg::Op_Chk() {
  check_field(txtOperators, lblOperators, op_ng);
}
void Make_cfg::Jidx_Chk() {
  check_field(txtJidx, lblJidx, jidx_ng);
}
void Make_cfg::set_in_dir_Chk() {
  check_field(txtSet_in_dir, lblSet_in_dir, set_in_dir_ng);
}
void Make_cfg::My_e_add_Chk() {
  check_field(txtMy_e_add, lblMy_e_add, my_e_add_ng);
}
void Make_cfg::e_add2_to_Chk() {
  if (Check1.checked) check_field(txtE_Add2_to, lblE_Add2_to, e_add2_to_ng);
}
void Make_cfg::e_add2_Chk() {
  if (Check1.checked) check_field(txtE_add2, lblE_add2, e_add2_ng);
}

void Make_cfg::Pad_Chk() {
  const bool needed = app.state.settings.pad_use_flag;
  const std::string editor{trim(txtPad.text)};
  pad_ng = needed && !is_plain_file(editor) ? 1 : 0;
  const Color color = pad_ng == 1 ? Color::red : Color::black;
  lblPad.color = color;
  show(Label4, pad_ng == 1 ? "再セット必要" : "", color);
  sp_flag_Chk();
}

void Make_cfg::sp_flag_Chk() {
  if (!Check1.checked) e_add2_to_ng = e_add2_ng = 0;
  ng_count = 0;
  for (const std::int16_t flag : {add1_ng, add2_ng, call_ng, name_ng, op_ng, jidx_ng, pad_ng, my_e_add_ng,
                                  set_in_dir_ng, e_add2_to_ng, e_add2_ng})
    ng_count = static_cast<std::int16_t>(ng_count + flag);
  cmdOK.enabled = ng_count == 0;
  if (ng_count == 0) {
    show(lblMsg, "作成可能", Color::blue);
    cmdBack.enabled = true;
  } else {
    show(lblMsg, "空白をあり", Color::red);
  }
}

// ---- controls ----

void Make_cfg::cmdSet_in_dir_Click() {
  app.trace.line("Private Sub cmdSet_in_dir_Click()");
  const auto file = app.desk.open_file_dialog({cmdSet_in_dir.tip,
                                               "ﾃｷｽﾄﾌｧｲﾙ ( *.all,*.txt,*.zlo,*.bin )|*.all;*.txt;*.zlo;*.bin",
                                               txtSet_in_dir.text});
  if (!file) return;
  txtSet_in_dir.text = folder_of_choice(*file);
  txtSet_in_dir.color = Color::black;
  set_in_dir_Chk();
  sp_flag_Chk();
}

void Make_cfg::Command1_Click() {
  app.trace.line("Private Sub Command1_Click()");
  // Programs carry the extension on some systems only.
  const auto file = app.desk.open_file_dialog(
      {Command1.tip, "エディター　( *.exe )|*.EXE|すべてのﾌｧｲﾙ|*|", std::string{folder_part(txtPad.text)}});
  if (!file) return;
  txtPad.text = *file;
  Pad_Chk();
}

void Make_cfg::Check1_Click() {
  app.trace.line("Private Sub Check1_Click()_Make_cfg");
  draft_.e_add2_use_flag = Check1.checked;
  e_add2_to_Chk();
  e_add2_Chk();
  if (!Check1.checked) lblE_Add2_to.color = lblE_add2.color = Color::black;
  sp_flag_Chk();
}

void Make_cfg::Check2_Click() {
  app.trace.line("Private Sub Check2_Click()_Make_cfg");
  draft_.jidx_no_disp_flag = Check2.checked ? 1 : 0;
}

void Make_cfg::Option1_Click() {
  app.trace.line("Private Sub Option1_Click()_Make_cfg");
  draft_.iota_name_only = !draft_.iota_name_only;
  show_island_option();
}

void Make_cfg::List1_Click() {
  app.trace.line("Private Sub List1_Click()_Make_cfg");
  if (List1.selected < 0) return;
  draft_.op_iota_island = island_name(List1.items.at(static_cast<std::size_t>(List1.selected)));
  lblIota.text = draft_.op_iota_island;
}

void Make_cfg::cmdBack_Click() {
  app.trace.line("Private Sub cmdBack_Click()");
  closed = true;
}

// ---- saving ----

bool Make_cfg::texts_fit_file() {
  const auto fits = [this](const TextBox& box) {
    if (fits_file(box.text)) return true;
    message_box(
        app, {varnisto::lines({"Varnisto.ini に書けない文字があります。", box.text}), "", Icon::exclamation});
    return false;
  };
  return std::ranges::all_of(fields, [&](const Field& field) { return fits(this->*field.box); }) &&
         std::ranges::all_of(txtCom, fits);
}

void Make_cfg::take_fields() {
  for (const Field& field : fields) draft_.*field.setting = trim((this->*field.box).text);
  for (std::size_t i = 0; i < txtCom.size(); ++i) draft_.*comments[i] = trim(txtCom[i].text);
  draft_.mycall = trim(to_upper(txtCall.text));
  draft_.mycall14 = pad_right(draft_.mycall, 14);
  txtCall.text = draft_.mycall;
}

void Make_cfg::save() {
  const Settings before = std::exchange(app.state.settings, draft_);
  try {
    write_settings(app);
  } catch (...) {
    app.state.settings = before;  // what was not saved does not hold
    throw;
  }
  app.state.settings.ini_version = draft_.ini_version = program_version;
  app.state.program.ini_found = app.state.program.cfg_loaded = true;
}

void Make_cfg::cmdOK_Click() {
  app.trace.line("Private Sub cmdOK_Click()");
  if (ng_count > 0 || !texts_fit_file()) return;
  take_fields();
  save();
  if (file_exists(legacy_path(app)))
    os::rename_file(*find_file(legacy_path(app)), app.state.program.app_dir + "Varnisto_old.cfg",
                    legacy_path(app));
  show(lblMsg, "作成終了", Color::blue);
}

}  // namespace varnisto
