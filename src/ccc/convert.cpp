#include "ccc/convert.h"

#include "base/text.h"

namespace varnisto {
namespace {

void note_qso(const CccQso& qso, const CccContest& contest, std::size_t line, CccResult& result) {
  if (qso.rcvd_rst.empty() && contest.needs_report)
    result.left_out.add(line);
  else if (!qso.band)
    result.band_kept.add(line);
}

}  // namespace

CccResult convert_ccc(TextReader& log, const CccContest& contest, const CccOptions& options, LineSink* work) {
  CccResult result;
  CccQso qso;
  std::string record;
  std::string_view text;
  log.next(text);  // names the contest
  while (log.next(text)) {
    if (is_blank(text)) continue;
    parse_ccc_line(TextLine{text, log.ascii()}, contest, options, qso);
    tally_ccc_qso(qso, contest, result.tally);
    note_qso(qso, contest, log.line_number(), result);
    ++result.qsos;
    if (work == nullptr) continue;
    set_ccc_work_line(qso, record);
    work->put(record);
  }
  sum_ccc_tally(result.tally);
  return result;
}

}  // namespace varnisto
