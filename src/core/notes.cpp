#include "core/notes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace varnisto {
namespace {

struct Words {
  NoteKind kind;
  std::string_view name;
  std::string_view text;
  std::string_view unit;  ///< of the count
};
constexpr Words words[] = {
    {NoteKind::after_eof, "after_eof", "終端文字 ( 1A ) より後の行は読んでいません。", "行"},
    {NoteKind::left_out, "left_out", "相手局のレポートが空白の交信は書いていません。", "件"},
    {NoteKind::mode_kept, "mode_kept", "表に無いモードの交信は前の交信のモードで書いています。", "件"},
    {NoteKind::band_kept, "band_kept", "表に無いバンドの交信は前の交信の周波数で書いています。", "件"},
    {NoteKind::tx_kept, "tx_kept", "TX# の無い交信は前の交信の送信機番号で書いています。", "件"},
    {NoteKind::tx_dropped, "tx_dropped", "ログの名前が all で終わらないため、送信機番号を 0 で書いています。",
     "件"},
    {NoteKind::contest_guessed, "contest_guessed", "ｺﾝﾃｽﾄ名はファイル名からの推定です。", ""},
    {NoteKind::invalid, "invalid", "ログで無効とされた交信は書いていません。", "件"},
    {NoteKind::score_not_computed, "score_not_computed",
     "このｺﾝﾃｽﾄの得点は計算していません ( CLAIMED-SCORE )。", ""},
    {NoteKind::utc_twice, "utc_twice", "ログの時刻は既に UTC ですが、UTC に変換しました。", ""},
    {NoteKind::count_differs, "count_differs", "ログの交信数がログ自身の記録と違います。", ""},
    {NoteKind::qtc_unread, "qtc_unread", "相手局・日付・時刻がそろわない QTC のメモは行にしていません。",
     "件"},
};

const Words& words_of(NoteKind kind) {
  return *std::ranges::find(words, kind, &Words::kind);
}

}  // namespace

void Notes::set(Note note) {
  std::erase_if(notes_, [&](const Note& other) { return other.kind == note.kind; });
  if (note.count == 0) return;
  const auto place = std::ranges::upper_bound(notes_, note.kind, {}, &Note::kind);
  notes_.insert(place, std::move(note));
}

void note_after_end(Notes& notes, TextReader& file) {
  const AfterEnd behind = file.after_end();
  notes.set({NoteKind::after_eof, behind.lines, behind.first_line});
}

std::string_view note_name(NoteKind kind) {
  return words_of(kind).name;
}

std::string note_text(const Note& note) {
  const Words& row = words_of(note.kind);
  std::string text{row.text};
  if (!note.detail.empty()) text.append(" [ ").append(note.detail).append(" ]");
  if (note.line == 0) return text;
  text.append(" （ ").append(std::to_string(note.count)).append(" ").append(row.unit);
  return text.append("、最初は ").append(std::to_string(note.line)).append(" 行目 ）");
}

}  // namespace varnisto
