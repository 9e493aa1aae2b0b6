#pragma once
// File look-up, copying and deletion. Users' folders come from a system that ignores the case of names, so
// look-ups of existing files do too; an exact match wins.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace varnisto {

/// The separator that ends a folder's name in every path this program holds.
inline constexpr char path_separator = '/';

/// The path from the root, without "." and ".." among its folders: names are made by cutting a path at its
/// first ".". The file need not exist; that of a folder ends in a separator.
std::string absolute_path(const std::string& path);

/// The name of the existing file `path` as the folder spells it; nothing when there is none.
std::optional<std::string> find_file(const std::string& path);
/// True when find_file() finds something.
bool file_exists(const std::string& path);

/// True when it finds a file that is no folder.
bool is_plain_file(const std::string& path);

/// Copies a file byte for byte through a fixed buffer; an existing target is replaced. Throws RunTimeError.
void copy_file(const std::string& from, const std::string& to);
/// Gives a file another name. An existing target is replaced, behind links if it is one, and its permissions
/// stay. Throws RunTimeError.
void move_file(const std::string& from, const std::string& to);
/// Deletes one file. A file that is not there is no error. Throws RunTimeError when the system refuses.
void delete_file(const std::string& path);
/// Deletes every file whose path is `prefix`, exactly one more character, and `suffix`. Finding none is no
/// error.
void delete_numbered(const std::string& prefix, std::string_view suffix = "");

/// Number of line breaks in the file plus one: the line at which appending would begin. Throws RunTimeError.
std::int32_t line_breaks_plus_one(const std::string& path);

/// The part of a path behind its last separator, and the part up to and including it.
std::string_view file_part(std::string_view path);
std::string_view folder_part(std::string_view path);

/// Replaces the file at `path` by these bytes in one step: written beside it under another name, then
/// renamed, so that a reader sees the old file or the new one. Keeps the permissions of the old file. Throws
/// RunTimeError.
void replace_file(const std::string& path, std::string_view bytes);

/// The whole file. Throws RunTimeError.
std::string read_file(const std::string& path);

}  // namespace varnisto
