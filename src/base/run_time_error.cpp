#include "base/run_time_error.h"

#include <algorithm>
#include <cerrno>
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

struct ErrnoNumber {
  int code;
  RunTimeError::Number number;
};

constexpr ErrnoNumber errno_numbers[] = {
    {ENOENT, RunTimeError::file_not_found},      {ENOTDIR, RunTimeError::path_not_found},
    {EACCES, RunTimeError::permission_denied},   {EPERM, RunTimeError::permission_denied},
    {EROFS, RunTimeError::permission_denied},    {EISDIR, RunTimeError::path_access_error},
    {EEXIST, RunTimeError::file_already_exists}, {ENOSPC, RunTimeError::disk_full},
    {EDQUOT, RunTimeError::disk_full},           {EFBIG, RunTimeError::disk_full},
    {EMFILE, RunTimeError::too_many_files},      {ENFILE, RunTimeError::too_many_files},
    {ENAMETOOLONG, RunTimeError::bad_file_name}, {EINVAL, RunTimeError::bad_file_name},
    {ELOOP, RunTimeError::path_access_error},    {EBUSY, RunTimeError::path_access_error},
    {ETXTBSY, RunTimeError::path_access_error},
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

void throw_file_error(int code, const std::string& path) {
  const auto* hit = std::ranges::find(errno_numbers, code, &ErrnoNumber::code);
  throw RunTimeError(hit == std::end(errno_numbers) ? RunTimeError::device_io_error : hit->number, path);
}

}  // namespace varnisto
