// A log without a summary of the logger: the count alone, and the whole way from opening it to the Cabrillo
// file.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/driver.h"
#include "app/open_input.h"
#include "app/start_up.h"
#include "platform/launcher.h"
#include "platform/text_sort.h"
#include "sheet/tally.h"
#include "ui/select_cont.h"

namespace varnisto {
namespace {

namespace fs = std::filesystem;

constexpr int cqww_row = 3;  // of the shipped contest_name.cfg

class QuietLauncher final : public Launcher {
 public:
  void browser(const std::string&) override {}
  void editor(const std::string&, const std::string&) override {}
  void help(const std::string&) override {}
};

/// Presses OK in the selection dialog after choosing the contest.
class ChoosingDesk final : public Desk {
 public:
  App* app = nullptr;

  int message_box(const MessageBox&) override { return 1; }
  std::optional<std::string> open_file_dialog(const OpenFileRequest&) override { return std::nullopt; }
  void show(FormName form) override {
    if (form != FormName::select_cont) return;
    select_cont dialog{*app};
    dialog.Form_Load();
    dialog.List1.selected = cqww_row;
    dialog.click("List1", cqww_row);
    dialog.click("cmdOK");
  }
  void text_shown(std::string_view, Color) override {}
  void hourglass(bool) override {}
};

/// A started program in a folder of its own, and a log of `qsos` QSOs spread over the six bands.
class Workplace {
 public:
  explicit Workplace(std::int64_t qsos) {
    std::string pattern = (fs::temp_directory_path() / "varnisto-bench-XXXXXX").string();
    folder_ = std::string{mkdtemp(pattern.data())} + "/";
    fs::copy(fs::path{VARNISTO_SOURCE_DIR} / "data", folder_, fs::copy_options::recursive);
    fs::copy(fs::path{VARNISTO_SOURCE_DIR} / "examples" / "Varnisto.ini", folder_);
    write_log(qsos);
    desk_.app = &app;
    Main(app, folder_);
    Form_Load(app);
  }
  ~Workplace() { fs::remove_all(folder_); }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

  std::string log() const { return folder_ + "contest.ALL"; }

 private:
  void write_log(std::int64_t qsos) const {
    constexpr std::string_view bands[] = {"1.9", "3.5", "7  ", "14 ", "21 ", "28 "};
    std::ofstream out{log(), std::ios::binary};
    out << "zLog for Windows \r\n";
    for (std::int64_t i = 0; i < qsos; ++i) {
      const bool new_multiplier = i % 100 == 0;
      out << "2025/11/29 00:12 QX" << i % 10 << "ABC       599 25      599 14      "
          << (new_multiplier ? "14    QU    " : "-     -     ") << bands[i % 6] << "  CW   3  \r\n";
    }
  }

  std::string folder_;
  FileProfile profile_;
  SystemClock clock_;
  FileTextSort sort_;
  QuietLauncher launcher_;
  ChoosingDesk desk_;
  Platform platform_{profile_, clock_, sort_, launcher_};

 public:
  App app{platform_, desk_};
};

void count_items(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void tally(benchmark::State& state) {
  Workplace place{state.range(0)};
  place.app.state.log.input.z2a_name = place.log();
  for (auto _ : state) tally_log(place.app, all_tally);
  count_items(state);
}
BENCHMARK(tally)->Arg(1000)->Arg(10000)->Arg(30000);

void convert_without_summary(benchmark::State& state) {
  Workplace place{state.range(0)};
  for (auto _ : state) {
    open_chosen_file(place.app, place.log());
    kaishi_Click(place.app);
  }
  count_items(state);
}
BENCHMARK(convert_without_summary)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace varnisto
