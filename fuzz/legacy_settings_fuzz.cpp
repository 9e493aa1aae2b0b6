// A legacy settings file of any bytes: what was read is written to a settings file and read back. An input of
// even size does that on disk, one of odd size in memory.

#include "base/cp932.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/settings.h"
#include "folder.h"
#include "support/null_app.h"

using namespace varnisto;

namespace {

/// What a reader of the settings file gives back of a value that was written. On disk it is bytes: where a
/// label stood between them, half a character may have found its other half.
std::string kept(const std::string& value, bool on_disk) {
  const std::string text = on_disk ? from_cp932(to_cp932(value)) : value;
  return std::string{trim(left(profile_value(text), longest_setting))};
}

void check_written(App& app, bool on_disk) {
  const Settings legacy = app.state.settings;
  write_settings(app);
  app.state.settings = Settings{};
  read_settings(app);
  for (const SettingKey& key : setting_keys())
    fuzz::require(setting_value(app.state.settings, key) == kept(setting_value(legacy, key), on_disk),
                  "a setting comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const test::TempDir folder;
  static test::NullApp null;
  folder.write("Varnisto.cfg", fuzz::bytes_of(data, size));
  std::remove((folder.path() + "Varnisto.ini").c_str());

  const bool on_disk = size % 2 == 0;
  FileProfile file;
  OverlayProfile overlay{file};
  Platform platform{on_disk ? static_cast<Profile&>(file) : overlay, null.clock, null.sort, null.launcher};
  App app{platform, null.desk};
  app.state.program.app_dir = folder.path();
  try {
    read_Varnisto_cfg(app, app.state.settings);
  } catch (const RunTimeError& error) {
    fuzz::require(error.number == RunTimeError::past_end || error.number == RunTimeError::overflow,
                  "a legacy file fails with 62 or 6");
    return 0;
  }
  check_written(app, on_disk);
  return 0;
}
