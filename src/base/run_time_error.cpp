#include "base/run_time_error.h"

#include <algorithm>
#include <iterator>

namespace varnisto {
namespace {

struct ErrorText {
  RunTimeError::Number number;
  std::string_view text;
};

constexpr ErrorText error_texts[] = {
    {RunTimeError::bad_argument, "値が不正です"},
    {RunTimeError::overflow, "数値が大き過ぎます（オーバーフロー）"},
    {RunTimeError::out_of_memory, "メモリが足りません"},
    {RunTimeError::bad_subscript, "番号が範囲外です"},
    {RunTimeError::type_mismatch, "数値または日付として読めません"},
    {RunTimeError::bad_file_name, "ファイル名が不正です"},
    {RunTimeError::file_not_found, "ファイルが見つかりません"},
    {RunTimeError::file_already_open, "ファイルは既に開かれています"},
    {RunTimeError::device_io_error, "入出力エラーです"},
    {RunTimeError::file_already_exists, "同じ名前のファイルが既にあります"},
    {RunTimeError::disk_full, "ディスクの空き容量が足りません"},
    {RunTimeError::past_end, "ファイルの終わりを越えて読もうとしました"},
    {RunTimeError::too_many_files, "開いているファイルが多過ぎます"},
    {RunTimeError::permission_denied, "アクセスが許可されていません"},
    {RunTimeError::path_access_error, "ファイルまたはフォルダにアクセス出来ません"},
    {RunTimeError::path_not_found, "フォルダが見つかりません"},
};

}  // namespace

std::string_view error_text(RunTimeError::Number number) {
  const auto* hit = std::ranges::find(error_texts, number, &ErrorText::number);
  return hit == std::end(error_texts) ? std::string_view{"不明なエラーです"} : hit->text;
}

std::string describe(const RunTimeError& error) {
  std::string text =
      "エラー " + std::to_string(error.number) + " ： " + std::string{error_text(error.number)};
  const std::string where = error.what();
  return where.empty() ? text : text + " ： " + where;
}

}  // namespace varnisto
