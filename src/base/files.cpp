#include "base/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "base/byte_buffer.h"
#include "base/checked_int.h"
#include "base/file_handle.h"
#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t buffer_size = 65536;

/// The names in a folder that `wanted` accepts; none when the folder cannot be read.
template <class Predicate>
std::vector<std::string> names_in(std::string_view folder, Predicate wanted) {
  std::vector<std::string> names;
  std::error_code failure;
  const fs::path where = folder.empty() ? fs::path{"."} : fs::path{folder};
  for (fs::directory_iterator entry{where, failure}, end; !failure && entry != end;
       entry.increment(failure)) {
    std::string name = entry->path().filename().string();
    if (wanted(name)) names.push_back(std::move(name));
  }
  std::ranges::sort(names);
  return names;
}

/// What a path stands for when it is a link: that is replaced, not the link.
std::string behind_links(const std::string& path) {
  std::error_code failure;
  const fs::path resolved = fs::weakly_canonical(path, failure);
  return failure ? path : resolved.string();
}

}  // namespace

std::string absolute_path(const std::string& path) {
  std::error_code failure;
  const fs::path whole = fs::absolute(path, failure);
  if (std::ranges::find(whole, fs::path{".."}) == whole.end()) return whole.lexically_normal().string();
  // Behind a link, "a/.." need not be where it seems: the folders that are there tell.
  const fs::path folder = fs::weakly_canonical(whole.parent_path(), failure);
  return failure ? whole.string() : (folder / whole.filename()).string();
}

std::string_view file_part(std::string_view path) {
  return path.substr(folder_part(path).size());
}

std::string_view folder_part(std::string_view path) {
  const std::size_t last = path.rfind(path_separator);
  return last == std::string_view::npos ? std::string_view{} : path.substr(0, last + 1);
}

std::optional<std::string> find_file(const std::string& path) {
  std::error_code failure;
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (fs::exists(path, failure)) return path;
  const std::string_view wanted = file_part(path);
  const std::string_view folder = folder_part(path);
  const auto names =
      names_in(folder, [&](std::string_view name) { return equal_ignoring_case(name, wanted); });
  if (names.empty()) return std::nullopt;
  return std::string{folder} + names.front();
}

bool file_exists(const std::string& path) {
  return find_file(path).has_value();
}

bool is_plain_file(const std::string& path) {
  std::error_code failure;
  const auto found = find_file(path);
  return found && fs::is_regular_file(*found, failure);
}

void copy_file(const std::string& from, const std::string& to) {
  FileHandle source = FileHandle::open_for_reading(from);
  // A target that is a link to the source must not be emptied before it is read.
  std::error_code failure;
  if (fs::equivalent(from, to, failure)) delete_file(to);
  FileHandle target = FileHandle::create(to);
  ByteBuffer buffer{buffer_size};
  while (const std::size_t count = source.read(buffer.data(), buffer.size()))
    target.write(buffer.first(count));
  target.close();
}

void move_file(const std::string& from, const std::string& to) {
  const std::string source = find_file(from).value_or(from);
  const std::string target = behind_links(to);
  if (struct stat old{}; ::stat(target.c_str(), &old) == 0) ::chmod(source.c_str(), old.st_mode & 07777U);
  if (std::rename(source.c_str(), target.c_str()) == 0) return;
  if (errno != EXDEV) throw_file_error(errno, from);
  copy_file(source, target);
  delete_file(source);
}

void delete_file(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) throw_file_error(errno, path);
}

void delete_numbered(const std::string& prefix, std::string_view suffix) {
  const std::string folder{folder_part(prefix)};
  const std::string_view start = file_part(prefix);
  const auto numbered = [&](std::string_view name) {
    return name.starts_with(start) && name.ends_with(suffix) && name.size() > start.size() + suffix.size() &&
           char_count(name.substr(start.size(), name.size() - start.size() - suffix.size())) == 1;
  };
  for (const std::string& name : names_in(folder, numbered)) delete_file(folder + name);
}

std::int32_t line_breaks_plus_one(const std::string& path) {
  FileHandle file = FileHandle::open_for_reading(path);
  ByteBuffer buffer{buffer_size};
  std::int64_t count = 1;
  while (const std::size_t size = file.read(buffer.data(), buffer.size()))
    count += std::ranges::count(buffer.first(size), '\n');
  return to_i32(count, path);
}

void replace_file(const std::string& path, std::string_view bytes) {
  const std::string target = behind_links(path);
  struct stat info {};
  const bool replaces = ::stat(target.c_str(), &info) == 0;
  if (replaces && ::access(target.c_str(), W_OK) != 0) throw_file_error(errno, path);

  const std::string fresh = target + ".new";
  try {
    FileHandle file = FileHandle::create(fresh);
    if (replaces) ::chmod(fresh.c_str(), info.st_mode & 07777U);
    file.write(bytes);
    file.close();
    if (::rename(fresh.c_str(), target.c_str()) != 0) throw_file_error(errno, path);
  } catch (const RunTimeError&) {
    ::unlink(fresh.c_str());
    throw;
  }
}

std::string read_file(const std::string& path) {
  FileHandle file = FileHandle::open_for_reading(path);
  std::string bytes;
  ByteBuffer buffer{buffer_size};
  while (const std::size_t size = file.read(buffer.data(), buffer.size())) bytes.append(buffer.first(size));
  return bytes;
}

}  // namespace varnisto
