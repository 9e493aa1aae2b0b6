#include "core/settings.h"

#include <utility>

#include "base/checked_int.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "core/version.h"

namespace varnisto {
namespace {

using S = Settings;

constexpr std::string_view key_version = "version";
constexpr std::string_view key_jidx_no_disp = "JIDX_no_Disp_flag";

constexpr SettingKey keys[] = {
    {key_version},
    {"CALLSIGN", &S::mycall},
    {"CLUB", &S::club},
    {"OPERATORS", &S::operators},
    {"NAME", &S::my_name},
    {"ADDRESS1", &S::address1},
    {"ADDRESS2", &S::address2},
    {"ADDRESS3", &S::address3},
    {"Comments_1", &S::comments_1},
    {"Comments_2", &S::comments_2},
    {"Comments_3", &S::comments_3},
    {"Comments_4", &S::comments_4},
    {"Comments_5", &S::comments_5},
    {"Comments_6", &S::comments_6},
    {"eQSLcom", &S::eqslcom},
    {"JIDX_No", &S::jidx_no},
    {"dir_pad", &S::dir_pad},
    {"e_mail", &S::e_mail},
    {"e_add2_to", &S::e_add2_to},
    {"e_add2", &S::e_add2},
    {"e_add2_use_flag", &S::e_add2_use_flag},
    {"Set_in_dir", &S::set_in_dir},
    {"pad_use_flag", &S::pad_use_flag},
    {"mode_2_rtty_flag", &S::mode_2_rtty_flag},
    {"get_freq_flag", &S::get_freq_flag},
    {"freq19_to_18_flag", &S::freq19_to_18_flag},
    {"add_qtc_flag", &S::add_qtc_flag},
    {"jst_to_utc_flag", &S::jst_to_utc_flag},
    {"for_eQSL_flag", &S::for_eqsl_flag},
    {"tenki_flag", &S::tenki_flag},
    {"e_mail_subject_flag", &S::e_mail_subject_flag},
    {key_jidx_no_disp},
    {"power_sel", &S::power_sel, true},
    {"operator_sel", &S::operator_sel, true},
    {"op_iota_island", &S::op_iota_island, true},
    {"IOTA_class", &S::iota_class, true},
    {"select_cont_yusen", &S::select_cont_yusen, true},
    {"exe_rec", &S::exe_rec, true, ini_main_section},
    {"iota_name_only", &S::iota_name_only, true},
};

struct LegacyLabel {
  std::string_view label;
  std::string Settings::*member;
};

// "freq19_to_18flag:" lacks the underscore that the INI key has: files out there are spelt so.
constexpr LegacyLabel legacy_labels[] = {
    {"CALLSIGN:", &S::mycall},
    {"CLUB:", &S::club},
    {"OPERATORS:", &S::operators},
    {"NAME:", &S::my_name},
    {"ADDRESS1:", &S::address1},
    {"ADDRESS2:", &S::address2},
    {"ADDRESS3:", &S::address3},
    {"SOAPBOX:", &S::soapbox},
    {"eQSLcom:", &S::eqslcom},
    {"JIDX_No:", &S::jidx_no},
    {"Set_in_dir:", &S::set_in_dir},
    {"dir_pad:", &S::dir_pad},
    {"e_mail:", &S::e_mail},
    {"e_add2_to:", &S::e_add2_to},
    {"e_add2:", &S::e_add2},
    {"e_add2_use_flag:", &S::e_add2_use_flag},
    {"pad_use_flag:", &S::pad_use_flag},
    {"mode_2_rtty_flag:", &S::mode_2_rtty_flag},
    {"get_freq_flag:", &S::get_freq_flag},
    {"freq19_to_18flag:", &S::freq19_to_18_flag},
    {"add_qtc_flag:", &S::add_qtc_flag},
    {"jst_to_utc_flag:", &S::jst_to_utc_flag},
    {"for_eQSL_flag:", &S::for_eqsl_flag},
    {"tenki_flag:", &S::tenki_flag},
    {"e_mail_subject_flag:", &S::e_mail_subject_flag},
};
constexpr std::string_view legacy_jidx_no_disp = "JIDX_no_Disp_flag:";
constexpr std::string_view legacy_version = "ver";

std::int16_t whole_number(std::string_view text, const std::string& where) {
  return to_i16(round_half_even(numeric_value(text)), where);
}

/// Takes what one line of the legacy file says; a line may hold several labels.
void read_legacy_line(Settings& settings, std::string_view line) {
  if (const std::size_t at = line.find(legacy_version); at != std::string_view::npos)
    settings.ini_version = trim(left(line.substr(at + legacy_version.size()), 10));
  for (const LegacyLabel& legacy : legacy_labels)
    if (contains(line, legacy.label)) settings.*legacy.member = trim(remove_all(line, legacy.label));
  if (contains(line, legacy_jidx_no_disp))
    settings.jidx_no_disp_flag =
        whole_number(remove_all(line, legacy_jidx_no_disp), std::string{legacy_jidx_no_disp});
  settings.mycall14 = pad_right(trim(settings.mycall), 14);
}

}  // namespace

std::span<const SettingKey> setting_keys() {
  return keys;
}

std::string setting_value(const Settings& settings, const SettingKey& key) {
  if (key.key == key_version) return std::string{program_version};
  if (key.key == key_jidx_no_disp) return std::to_string(settings.jidx_no_disp_flag);
  const std::string& value = settings.*key.member;
  return key.as_held ? value : std::string{trim(value)};
}

bool set_setting(Settings& settings, std::string_view key, const std::string& value) {
  for (const SettingKey& known : keys) {
    if (!equal_ignoring_case(known.key, key) || known.key == key_version) continue;
    if (known.member)
      settings.*known.member = value;
    else
      settings.jidx_no_disp_flag = whole_number(value, std::string{key});
    settings.mycall14 = pad_right(trim(settings.mycall), 14);
    return true;
  }
  return false;
}

std::string ini_path(const App& app) {
  return app.state.program.app_dir + "Varnisto.ini";
}

std::string legacy_path(const App& app) {
  return app.state.program.app_dir + "Varnisto.cfg";
}

bool settings_current(App& app) {
  return app.state.settings.ini_version == program_version && app.platform.profile.exists(ini_path(app));
}

std::vector<ProfileEntry> settings_entries(const Settings& settings) {
  std::vector<ProfileEntry> entries;
  for (const SettingKey& key : keys)
    entries.push_back({std::string{key.section}, std::string{key.key}, setting_value(settings, key)});
  return entries;
}

void write_settings(App& app) {
  app.trace.line("Public Sub write_settings()");
  Profile& profile = app.platform.profile;
  const std::string path = ini_path(app);
  const ProfileHold hold{profile, path};
  std::vector<ProfileEntry> entries;
  for (const SettingKey& key : keys) {
    std::string value = setting_value(app.state.settings, key);
    const std::string text = profile.get(path, key.section, key.key);
    SettingInFile& known = app.state.settings_in_file[key.key];
    // What another program has changed meanwhile and this one has not stays as it stands.
    const bool changed_there = !text.empty() && text != known.text;
    if (changed_there && value == known.written && key.key != key_version) continue;
    known = {value, value};
    entries.push_back({std::string{key.section}, std::string{key.key}, std::move(value)});
  }
  profile.set(path, entries);
}

void write_settings_or_tell(App& app) {
  try {
    write_settings(app);
  } catch (const RunTimeError& error) {
    add_notice(app, describe(error));
  }
}

void write_current_settings(App& app) {
  if (settings_current(app)) write_settings_or_tell(app);
}

void read_settings(App& app) {
  app.trace.line("Public Sub read_settings()");
  Settings& settings = app.state.settings;
  const std::string path = ini_path(app);
  const auto value_of = [&](std::string_view section, std::string_view key) {
    return std::string{left(app.platform.profile.get(path, section, key), longest_setting)};
  };
  for (const SettingKey& key : keys) {
    const std::string value = value_of(key.section, key.key);
    if (key.key == key_version)
      settings.ini_version = value;
    else if (key.key == key_jidx_no_disp)
      settings.jidx_no_disp_flag = whole_number(value, path + ": " + std::string{key.key});
    else
      settings.*key.member = value;
  }
  settings.soapbox = value_of(ini_section, "SOAPBOX");
  settings.mycall14 = pad_right(trim(settings.mycall), 14);
  for (const SettingKey& key : keys)
    app.state.settings_in_file[key.key] = {app.platform.profile.get(path, key.section, key.key),
                                           setting_value(settings, key)};
}

void read_Varnisto_cfg(App& app) {
  app.trace.line("Public Sub read_Varnisto_cfg()");
  TextReader reader{legacy_path(app)};
  std::string_view line = reader.must_next();
  do {
    read_legacy_line(app.state.settings, line);
  } while (reader.next(line));
}

void read_cfg2(App& app) {
  app.trace.line("Public Sub read_cfg2()");
  read_settings(app);
}

void check_cfg(App& app) {
  app.trace.line("Public Sub check_cfg()");
  if (!app.state.settings.dir_pad.empty()) return;
  show_text(app,
            lines({" WORDPAD.EXE のフォルダが未確定です。", " WORDPAD.EXE のフォルダを確認してから",
                   " [ 環境 ] にて WORDPAD.EXE のフォルダを指定し", " Varnisto.ini を作成して下さい。"}),
            Color::red);
  app.main.mnuOpen_file.enabled = false;
  app.main.lblIn.text = "「 環境 」より新 ｉｎｉ を作成して下さい";
  app.main.lblIn.color = Color::red;
}

void get_call_from_cfg(App& app) {
  app.trace.line("Public Sub get_call_from_cfg()");
  constexpr std::string_view label = "CALLSIGN:";
  TextReader reader{ini_path(app)};
  for (std::string_view line; reader.next(line);)
    if (contains(line, label)) app.state.settings.mycall_base = trim(remove_all(line, label));
}

std::vector<std::string> missing_settings(const App& app) {
  const Settings& settings = app.state.settings;
  constexpr std::string Settings::*required[] = {&S::my_name, &S::mycall, &S::address1,  &S::operators,
                                                 &S::jidx_no, &S::e_mail, &S::set_in_dir};
  std::vector<std::string> missing;
  for (const auto member : required)
    for (const SettingKey& key : keys)
      if (key.member == member && (settings.*member).empty()) missing.emplace_back(key.key);
  if (app.main.Check1.checked && settings.dir_pad.empty()) missing.emplace_back("dir_pad");
  return missing;
}

}  // namespace varnisto
