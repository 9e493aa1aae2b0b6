#include "core/settings.h"

#include <algorithm>
#include <utility>

#include "base/checked_int.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "core/version.h"

namespace varnisto {
namespace {

using S = Settings;

constexpr std::string_view key_version = "version";

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
    {"JIDX_no_Disp_flag", &S::jidx_no_disp_flag},
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
  SettingMember member;
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
    {"JIDX_no_Disp_flag:", &S::jidx_no_disp_flag},
};
constexpr std::string_view legacy_version = "ver";

std::int16_t whole_number(std::string_view text, const std::string& where) {
  return to_i16(round_half_even(numeric_value(text)), where);
}

Precedence precedence_of(std::string_view text) {
  if (text.empty()) return Precedence::unset;
  return text == "1" ? Precedence::dialog : Precedence::summary;
}

std::string_view text_of(Precedence precedence) {
  switch (precedence) {
    case Precedence::unset:
      return "";
    case Precedence::summary:
      return "0";
    case Precedence::dialog:
      return "1";
  }
  return "";
}

/// Puts a value into its member as a file or the user wrote it; `where` names it in an error.
struct Taker {
  Settings& settings;
  const std::string& text;
  std::string_view where;

  void operator()(std::monostate) const { settings.ini_version = text; }
  void operator()(std::string S::*member) const { settings.*member = text; }
  void operator()(bool S::*member) const { settings.*member = trim(text) == "1"; }
  void operator()(std::int16_t S::*member) const {
    settings.*member = whole_number(text, std::string{where});
  }
  void operator()(Precedence S::*member) const { settings.*member = precedence_of(trim(text)); }
};

/// The text that is written for a member.
struct Written {
  const Settings& settings;
  bool as_held;

  std::string operator()(std::monostate) const { return std::string{program_version}; }
  std::string operator()(std::string S::*member) const {
    return as_held ? settings.*member : std::string{trim(settings.*member)};
  }
  std::string operator()(bool S::*member) const { return settings.*member ? "1" : "0"; }
  std::string operator()(std::int16_t S::*member) const { return std::to_string(settings.*member); }
  std::string operator()(Precedence S::*member) const { return std::string{text_of(settings.*member)}; }
};

void take(Settings& settings, const SettingMember& member, const std::string& text, std::string_view where) {
  std::visit(Taker{settings, text, where}, member);
}

/// Takes what one line of the legacy file says; a line may hold several labels.
void read_legacy_line(Settings& settings, std::string_view line) {
  if (const std::size_t at = line.find(legacy_version); at != std::string_view::npos)
    settings.ini_version = trim(left(line.substr(at + legacy_version.size()), 10));
  for (const LegacyLabel& legacy : legacy_labels)
    if (contains(line, legacy.label))
      take(settings, legacy.member, std::string{trim(remove_all(line, legacy.label))}, legacy.label);
  settings.mycall14 = pad_right(trim(settings.mycall), 14);
}

}  // namespace

std::span<const SettingKey> setting_keys() {
  return keys;
}

std::string setting_value(const Settings& settings, const SettingKey& key) {
  return std::visit(Written{settings, key.as_held}, key.member);
}

bool set_setting(Settings& settings, std::string_view key, const std::string& value) {
  for (const SettingKey& known : keys) {
    if (!equal_ignoring_case(known.key, key) || known.key == key_version) continue;
    take(settings, known.member, value, key);
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
  for (const SettingKey& key : keys) {
    const std::string text = app.platform.profile.get(path, key.section, key.key);
    take(settings, key.member, std::string{left(text, longest_setting)}, path + ": " + std::string{key.key});
    app.state.settings_in_file[key.key] = {text, setting_value(settings, key)};
  }
  settings.mycall14 = pad_right(trim(settings.mycall), 14);
}

void read_Varnisto_cfg(App& app, Settings& settings) {
  app.trace.line("Public Sub read_Varnisto_cfg()");
  TextReader reader{legacy_path(app)};
  std::string_view line = reader.must_next();
  do {
    read_legacy_line(settings, line);
  } while (reader.next(line));
}

std::vector<std::string> missing_settings(const Settings& settings, bool editor_ticked) {
  constexpr std::string_view required[] = {"NAME",    "CALLSIGN", "ADDRESS1",   "OPERATORS",
                                           "JIDX_No", "e_mail",   "Set_in_dir", "dir_pad"};
  std::vector<std::string> missing;
  for (const std::string_view name : required) {
    if (name == "dir_pad" && !editor_ticked) continue;
    const auto* const key = std::ranges::find(keys, name, &SettingKey::key);
    if ((settings.*std::get<std::string S::*>(key->member)).empty()) missing.emplace_back(name);
  }
  return missing;
}

}  // namespace varnisto
