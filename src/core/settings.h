#pragma once
// The settings file Varnisto.ini and its forerunner Varnisto.cfg.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/app.h"

namespace varnisto {

/// The section of nearly every key, and that of the run counter.
inline constexpr std::string_view ini_section = "Varnisto.ini";
inline constexpr std::string_view ini_main_section = "Main";
/// Longest value that a reader of the file gives back, in characters.
inline constexpr std::size_t longest_setting = 127;

/// Where a setting is kept: a text, a flag, a number, or whose category holds. Nothing for the program's
/// version, which is written as it is.
using SettingMember = std::variant<std::monostate, std::string Settings::*, bool Settings::*,
                                   std::int16_t Settings::*, Precedence Settings::*>;

/// A key of the settings file and the setting it holds. A flag is on when its trimmed text is "1"; it is
/// written "1" or "0".
struct SettingKey {
  std::string_view key;
  SettingMember member = {};
  bool as_held = false;  ///< a text that is written with its blanks
  std::string_view section = ini_section;
};
/// All keys in the order of the file.
std::span<const SettingKey> setting_keys();
/// The text that `write_settings` writes for a key.
std::string setting_value(const Settings& settings, const SettingKey& key);

/// Sets the setting of a key (the case of its name does not matter). False when there is no such key. Throws
/// RunTimeError 6 for a number beyond 16 bits.
bool set_setting(Settings& settings, std::string_view key, const std::string& value);

/// Path of the settings file and of the legacy file.
std::string ini_path(const App& app);
std::string legacy_path(const App& app);
/// True when the settings file exists and was written by this version.
bool settings_current(App& app);

/// What `write_settings` writes.
std::vector<ProfileEntry> settings_entries(const Settings& settings);
/// Writes every key, in one replacement of the file; one that was not changed here stays as it stands in the
/// file. Throws RunTimeError 61, 70, 76.
void write_settings(App& app);
/// The same; that it cannot be written is a notice: what runs needs no file.
void write_settings_or_tell(App& app);
/// The same when the settings file exists and is current; nothing otherwise.
void write_current_settings(App& app);
/// Reads every key; a missing one gives "". Values are cut to 127 characters. Also sets `mycall14`.
void read_settings(App& app);
/// Takes the settings of the legacy file: one "LABEL:value" a line; a line may match several labels. Throws
/// RunTimeError 53, 62.
void read_Varnisto_cfg(App& app, Settings& settings);
/// The settings that must be filled before a log can be converted, by key; those that are blank.
/// With `editor_ticked` the editor's path is one of them.
std::vector<std::string> missing_settings(const Settings& settings, bool editor_ticked);

}  // namespace varnisto
