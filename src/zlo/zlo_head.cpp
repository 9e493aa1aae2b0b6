#include "zlo/zlo_head.h"

#include "base/cp932.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::string_view cq_160 = "CQWW160", cq_160_title = "CQWW160 Contest";
constexpr std::string_view jidx_power_text =
    "\r\n                 High Power(出力100wを超える局),"
    "\r\n                 Low Power(出力100w以下の局)";

std::string trimmed(std::string_view cp932) {
  const std::string text = from_cp932(cp932);
  return std::string{trim(text)};
}

}  // namespace

ZloHead read_zlo_head(ZloReader& log) {
  const ZloHeadRecord record = log.head();
  ZloHead head{.call = trimmed(record.call),
               .title = trimmed(record.title),
               .titled = !record.title.empty(),
               .utc = record.utc_offset == log_is_utc,
               .qso_count = {}};
  if (contains(head.title, cq_160)) head.title = cq_160_title;
  if (record.letters == zlox_letters) head.qso_count = record.qso_count;
  return head;
}

std::string_view why_no_zlo_log(const std::string& path) {
  return is_no_binary_log(path) ? no_zlo_log_text : "";
}

std::string zlo_found_text(std::string_view zlo_title, std::string_view total_score_text) {
  std::string text = "取得 ｺﾝﾃｽﾄ 名 ： ";
  text.append(zlo_title).append("\r\nTotal score   :  ").append(total_score_text);
  if (contains(zlo_title, "JIDX")) text.append(jidx_power_text);
  return text;
}

}  // namespace varnisto
