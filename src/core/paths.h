#pragma once
// Pieces of paths and their display.

#include <cstddef>
#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// The pieces of a full path, by the naming rules.
struct PathPieces {
  std::string file_name;  ///< name with extension
  std::string ext;        ///< extension without "."; empty when there is none
  std::string dir;        ///< path without the name
  std::string stem;       ///< path whose name has lost every ".extension", then "."
};
PathPieces pieces_of(std::string_view path);

/// True when the text is a path with a folder.
bool has_folder(std::string_view path);

/// The path with every occurrence of `from` in the file's own name replaced by `to`; its folder stays.
std::string replace_in_name(std::string_view path, std::string_view from, std::string_view to);
/// The same for "." & `ext` and a suffix such as "_z2a.all".
std::string with_suffix(std::string_view path, std::string_view ext, std::string_view suffix);

/// The longest beginning of whole characters that needs at most `limit` bytes of code page 932.
std::string_view cp932_prefix(std::string_view text, std::size_t limit);

/// Shortens a path for display to `limit` bytes of code page 932: its beginning, "...", separator and file
/// name, with every blank as "_". A character that the cut would divide is left out. A text within the limit
/// stays as it is.
std::string shorten_path(std::string_view text, std::size_t limit);

/// A text as part of a file's name: "-" for "/", so that no sub-folder is needed, and for control characters.
std::string name_text(std::string_view text);
/// Own call sign as file names carry it: name_text() of it, trimmed.
std::string call_for_names(const App& app);

/// Sets `in_ext`, `in_dir`, `in_stem` from a path.
void split_path(App& app, const std::string& path);
/// Name of the summary that the program makes for a log of this kind, from `zsm_name`.
std::string generated_summary(const InputState& input, InputKind kind);
/// Clears the tallies of a log; `total_score` stays.
void zero_clear(App& app);

}  // namespace varnisto
