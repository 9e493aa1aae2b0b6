#include "cabrillo/qtc_log.h"

#include <array>
#include <ctime>

#include "base/scratch_files.h"
#include "base/text.h"
#include "base/text_writer.h"
#include "cabrillo/jst_to_utc.h"
#include "cabrillo/qtc_files.h"
#include "cabrillo/qtc_memo.h"
#include "core/paths.h"

namespace varnisto {
namespace {

/// One record a memo; the key orders them by the number of the series.
enum SeriesField { series_key, series_group, series_number, series_receiver, series_time, series_fields };

constexpr std::string_view key_columns = "2:6";

struct Scratch {
  explicit Scratch(const std::string& folder)
      : collected(files.add(folder + "qtc_001.csv")),
        sorted(files.add(folder + "qtc_002.csv")),
        unique(files.add(folder + "qtc_003.csv")) {}

  ScratchFiles files;
  std::string collected, sorted, unique;
};

void collect(TextReader& log, bool to_utc, const std::string& path) {
  TextWriter out = TextWriter::scratch(path);
  std::string record;
  Occurrences incomplete;  // the merge tells the user of them
  for (std::string_view line; log.next(line);)
    for_each_qtc(line, log.line_number(), incomplete, [&](const QtcMemo& memo) {
      const std::string key = std::string{right(std::string{"00"}.append(memo.group), 3)} + "QTC";
      set_quoted_fields(record, {key, memo.group, memo.number, memo.receiver, qtc_time(memo, to_utc).time});
      out.put(record);
    });
  out.close();
}

void drop_repeated(const std::string& from, const std::string& to) {
  ScratchRecords<series_fields> records{from};
  TextWriter out = TextWriter::scratch(to);
  std::string record;
  std::string previous;
  while (records.next()) {
    if (records[series_key] == previous) continue;
    previous = records[series_key];
    set_quoted_fields(record, {previous, records[series_group], records[series_number],
                               records[series_receiver], records[series_time]});
    out.put(record);
  }
  out.close();
}

/// Date and time of the run as the head of the QTC log carries them.
std::string run_time(const App& app) {
  const std::tm now = app.platform.clock.now();
  std::array<char, 16> date{};
  std::array<char, 16> time{};
  std::strftime(date.data(), date.size(), "%Y/%m/%d", &now);
  std::strftime(time.data(), time.size(), "%H:%M", &now);
  return J2U_qtc(date.data(), time.data());
}

void put_titles(const App& app, TextWriter& out) {
  out.put(std::string(27, ' ') + "WORKED ALL EUROPE QTC LOG");
  out.put("");
  out.put(std::string{"  "}.append(trim(app.state.settings.mycall)) + "   DARC WORKED ALL EUROPE CONTEST   ");
  out.put(app.state.log.category.cat_text + "     " + run_time(app));
  out.put("");
  out.put("GRP/NUM  TIME CALL");
}

void put_log(App& app, const std::string& records_path) {
  ScratchRecords<series_fields> records{records_path};
  TextWriter out{app.outputs.create(app.state.log.input.qlg_name)};
  put_titles(app, out);
  std::string line;
  while (records.next()) {
    line.clear();
    append_right_aligned(line, records[series_group], 3);
    line += '/';
    append_left_aligned(line, records[series_number], 5);
    out.put(line.append(records[series_time]).append(" ").append(records[series_receiver]));
  }
  out.close();
}

}  // namespace

void get_qtc(App& app) {
  app.trace.line("Public Sub get_qtc()_1");
  TextReader log = read_text(app, qtc_source(app));
  if (!has_logger_title(log)) return;
  const Scratch scratch{app.tmp_dir.path()};
  collect(log, app.state.settings.jst_to_utc_flag, scratch.collected);
  app.trace.line("Public Sub get_qtc()_2_sort");
  sort_scratch(app, key_columns, scratch.collected, scratch.sorted);
  app.trace.line("Public Sub get_qtc()_3");
  drop_repeated(scratch.sorted, scratch.unique);
  app.trace.line("Public Sub get_qtc()_4");
  put_log(app, scratch.unique);
  app.state.log.input.outputs.push_back(app.state.log.input.qlg_name);
}

}  // namespace varnisto
