#pragma once
// File look-up, copying and deletion. Users' folders come from a system that ignores the case of names, so
// look-ups of existing files do too; an exact match wins.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_handle.h"

namespace varnisto {

/// The separator that ends a folder's name in every path this program holds.
inline constexpr char path_separator = '/';

/// The name of the existing file `path` as the folder spells it; nothing when there is none.
std::optional<std::string> find_file(const std::string& path);
/// True when find_file() finds something.
bool file_exists(const std::string& path);

/// True for an existing folder.
bool is_folder(const std::string& path);
/// True when it finds a file that is no folder.
bool is_plain_file(const std::string& path);

/// Copies a file byte for byte through a fixed buffer into an open one, and closes that. Throws RunTimeError.
void copy_file(const std::string& from, FileHandle to);
/// Deletes a file; a folder stays. False when the system keeps a file.
bool delete_if_file(const std::string& path);
/// Deletes what earlier programs left of an output: files of its name and "2", or "_" and one more character.
/// Returns those that the system keeps; a folder of such a name is none of them.
std::vector<std::string> delete_leftovers(const std::string& output);

/// Number of line breaks in the file plus one: the line at which appending would begin. Throws RunTimeError.
std::int32_t line_breaks_plus_one(const std::string& path);

/// The part of a path behind its last separator, and the part up to and including it.
std::string_view file_part(std::string_view path);
std::string_view folder_part(std::string_view path);

/// The whole file. Throws RunTimeError.
std::string read_file(const std::string& path);

}  // namespace varnisto
