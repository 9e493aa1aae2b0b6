#include "core/paths.h"

#include "base/cp932.h"
#include "base/files.h"
#include "base/text.h"

namespace varnisto {
namespace {

/// Length of a text in bytes of code page 932.
std::size_t cp932_size(std::string_view text) {
  return to_cp932(text, Unmappable::question_mark).size();
}

}  // namespace

PathPieces pieces_of(std::string_view path) {
  PathPieces pieces;
  pieces.file_name = file_part(path);
  const std::size_t dot = pieces.file_name.rfind('.');
  if (dot != std::string::npos) pieces.ext = pieces.file_name.substr(dot + 1);
  pieces.dir = folder_part(path);
  pieces.stem = replace_in_name(path, "." + pieces.ext, "") + ".";
  return pieces;
}

bool has_folder(std::string_view path) {
  return path.find(path_separator) != std::string_view::npos;
}

std::string replace_in_name(std::string_view path, std::string_view from, std::string_view to) {
  return std::string{folder_part(path)} + replace_all(file_part(path), from, to);
}

std::string with_suffix(std::string_view path, std::string_view ext, std::string_view suffix) {
  return replace_in_name(path, "." + std::string{ext}, suffix);
}

std::string_view cp932_prefix(std::string_view text, std::size_t limit) {
  std::size_t used = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const std::size_t size = left(text.substr(pos), 1).size();
    used += cp932_size(text.substr(pos, size));
    if (used > limit) break;
    pos += size;
  }
  return text.substr(0, pos);
}

std::string shorten_path(std::string_view text, std::size_t limit) {
  if (cp932_size(text) <= limit) return std::string{text};
  const std::string tail = std::string{"..."} + path_separator + std::string{file_part(text)};
  const std::size_t tail_size = cp932_size(tail);
  const std::size_t room = limit > tail_size ? limit - tail_size : 0;
  const std::string shortened = std::string{cp932_prefix(text, room)} + tail;
  return replace_all(replace_all(shortened, " ", "_"), "　", "_");
}

std::string name_text(std::string_view text) {
  std::string name{text};
  for (char& c : name)
    if (c == path_separator || is_control(c)) c = '-';
  return name;
}

std::string call_for_names(const App& app) {
  return name_text(trim(app.state.settings.mycall));
}

void split_path(App& app, const std::string& path) {
  const PathPieces pieces = pieces_of(path);
  InputState& input = app.state.log.input;
  input.in_ext = pieces.ext;
  input.in_dir = pieces.dir;
  input.in_stem = pieces.stem;
}

std::string generated_summary(const InputState& input, InputKind kind) {
  return replace_in_name(input.zsm_name, ".zsm", names_of(kind).zsm_suffix);
}

void zero_clear(App& app) {
  app.trace.line("Public Sub zero_clear()");
  TallyState& tally = app.state.log.tally;
  const TallyState kept = tally;
  tally = TallyState{};
  tally.total_score = kept.total_score;
  tally.score_detail = kept.score_detail;
}

}  // namespace varnisto
