#include "app/checker.h"

#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "base/columns.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_writer.h"

namespace varnisto {
namespace {

constexpr std::string_view tags[] = {
    "LOCATION:",       "CONTEST:",       "CALLSIGN:",      "CATEGORY-OPERATOR:", "CATEGORY-TRANSMITTER:",
    "CATEGORY-POWER:", "CATEGORY-MODE:", "CATEGORY-BAND:", "CATEGORY-STATION:",  "CATEGORY-ASSISTED:",
    "CLAIMED-SCORE:",  "OPERATORS:",     "NAME:"};
constexpr std::size_t shortest_tag = 5;

struct QsoColumn {
  Columns columns;
  std::string_view message;
};
// Positions of the Cabrillo 3.0 QSO template below.
constexpr QsoColumn qso_columns[] = {
    {{6, 5}, "            freq が空白です。"},      {{12, 2}, "            mode が空白です。"},
    {{15, 10}, "            date が空白です。"},    {{26, 4}, "            time が空白です。"},
    {{31, 13}, "            my call が空白です。"}, {{45, 3}, "            his rst が空白です。"},
    {{49, 6}, "            his exch が空白です。"}, {{56, 13}, "            his call が空白です。"},
    {{70, 3}, "            his rst が空白です。"},  {{74, 6}, "            his exch が空白です。"}};

constexpr std::string_view qso_template[] = {
    "                              --------info sent------- -------info rcvd--------",
    "QSO: freq  mo date       time call          rst exch   call          rst exch   t",
    "QSO: ***** ** yyyy-mm-dd nnnn ************* nnn ****** ************* nnn ****** n"};

constexpr std::size_t full_width = 79;  // up to the received exchange

using BlankColumns = std::array<bool, std::size(qso_columns)>;

/// Marks the columns that are blank; true when there is one.
template <class Line>
bool find_blanks(const Line& line, BlankColumns& blank) {
  bool any = false;
  for (std::size_t i = 0; i < blank.size(); ++i) {
    blank[i] = is_blank(line.cut(qso_columns[i].columns));
    any = any || blank[i];
  }
  return any;
}

class Checker {
 public:
  explicit Checker(LineSink& report) : report_(report) {}

  void check(const TextLine& line) {
    check_tags(line.text());
    report_.put("");
    if (contains(line.text(), "QSO:")) check_qso(line);
  }

  CheckResult result;

 private:
  void check_tags(std::string_view line) {
    // Every tag ends in a colon, and in a QSO line the only one stands too far left for any of them.
    if (line.find(':', shortest_tag - 1) == std::string_view::npos) return;
    for (const std::string_view tag : tags) {
      const std::size_t at = line.find(tag);
      if (at == std::string_view::npos || !is_blank(line.substr(at + tag.size()))) continue;
      const std::string message = std::string{tag} + " 項目が空白です。";
      report_.put(message);
      report_.put("");
      found(message);
      ++result.errors;
    }
  }

  void check_qso(const TextLine& line) {
    ++result.qsos;
    BlankColumns blank{};
    const bool any = line.ascii() && line.text().size() >= full_width
                         ? find_blanks(FullLine{line.text()}, blank)
                         : find_blanks(line, blank);
    if (!any) return;
    ++result.errors;
    for (const std::string_view template_line : qso_template) report_.put(template_line);
    report_.put(line.text());
    std::string message = " " + std::to_string(result.qsos) + " 行目の";
    for (std::size_t i = 0; i < blank.size(); ++i) {
      if (!blank[i]) continue;
      message += qso_columns[i].message;
      report_.put(message);
      found(message);
      message.clear();
    }
    report_.put("");
  }

  void found(std::string_view message) {
    if (++result.finding_count <= static_cast<std::int64_t>(most_findings))
      result.findings.emplace_back(trim(message));
  }

  LineSink& report_;
};

std::string report_name(const App& app) {
  return app.state.program.app_dir + "check_Cabrillo.txt";
}

/// The report's file. The first failure gives it up with a notice: the log is worth more than its report.
class ReportFile final : public LineSink {
 public:
  ReportFile(App& app, std::string path) : app_(app), path_(std::move(path)) {
    attempt([this] { file_.emplace(app_.outputs.create(path_, Need::dispensable)); });
  }
  void put(std::string_view line) override {
    if (file_) attempt([&] { file_->put(line); });
  }
  void close() {
    if (file_) attempt([this] { file_->close(); });
  }
  bool is_whole() const { return file_.has_value(); }

 private:
  template <class Work>
  void attempt(Work work) {
    try {
      work();
    } catch (const RunTimeError& error) {
      file_.reset();
      app_.outputs.give_up(path_);
      add_notice(app_, describe(error));
    }
  }

  App& app_;
  std::string path_;
  std::optional<TextWriter> file_;
};

}  // namespace

CheckResult check_cabrillo(TextReader& log, const std::string& in_name, const std::string& out_name,
                           LineSink& report) {
  report.put("入力ファイル名 ： " + in_name);
  report.put("出力ファイル名 ： " + out_name);
  report.put("");
  Checker checker{report};
  for (std::string_view line; log.next(line);) checker.check({line, log.ascii()});
  return std::move(checker.result);
}

CheckResult check_Cabrillo_sub(App& app) {
  app.trace.line("Public Sub check_Cabrillo_sub()");
  const InputState& input = app.state.log.input;
  TextReader log = read_text(app, input.out_name);
  ReportFile report{app, report_name(app)};
  CheckResult result = check_cabrillo(log, input.in_name, input.out_name, report);
  report.close();
  if (result.errors == 0 && report.is_whole()) app.outputs.remove(report_name(app));
  result.report_kept = result.errors > 0 && report.is_whole();
  return result;
}

void show_check_report(App& app, const CheckResult& check) {
  if (!check.report_kept) return;
  app.state.display.disp_name = report_name(app);
  app.desk.show(FormName::frmDisp2);
}

}  // namespace varnisto
