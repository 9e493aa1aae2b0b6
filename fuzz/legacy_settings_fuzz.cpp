// A legacy settings file of any bytes: what was read is written to a settings file and read back. An input of
// even size does that on disk, one of odd size in memory.

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/settings.h"
#include "folder.h"
#include "support/null_app.h"

using namespace varnisto;

namespace {

/// What a reader of the settings file gives back of a value that was written.
std::string kept(const std::string& value) {
  return std::string{left(profile_value(value), longest_setting)};
}

void check_written(App& app) {
  const Settings legacy = app.state.settings;
  write_settings(app);
  app.state.settings = Settings{};
  read_settings(app);
  for (const SettingKey& key : setting_keys())
    fuzz::require(
        setting_value(app.state.settings, key) == std::string{trim(kept(setting_value(legacy, key)))},
        "a setting comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const test::TempDir folder;
  static test::NullApp null;
  folder.write("Varnisto.cfg", fuzz::bytes_of(data, size));
  std::remove((folder.path() + "Varnisto.ini").c_str());

  FileProfile file;
  OverlayProfile overlay{file};
  Platform platform{size % 2 == 0 ? static_cast<Profile&>(file) : overlay, null.clock, null.sort,
                    null.launcher};
  App app{platform, null.desk};
  app.state.program.app_dir = folder.path();
  try {
    read_Varnisto_cfg(app);
  } catch (const RunTimeError& error) {
    fuzz::require(error.number == RunTimeError::past_end || error.number == RunTimeError::overflow,
                  "a legacy file fails with 62 or 6");
    return 0;
  }
  check_written(app);
  return 0;
}
