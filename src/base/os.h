#pragma once
// What every system does its own way, as plain functions: files and their identity, folders, locks,
// processes. The rest of the program asks these. Another system is another file beside os_posix.cpp; signals
// stand in interruption.h, the code page in cp932_converter.h.

#include <compare>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnisto::os {

/// A file or folder whatever its name: hard links to it are the same file.
struct FileId {
  std::uint64_t device = 0, number = 0;
  auto operator<=>(const FileId&) const = default;  // NOLINT(modernize-use-nullptr): its 0 is no pointer
};

/// What the system knows of a file or folder, behind links.
struct FileFacts {
  enum class Kind { plain, folder, other };
  FileId id;
  Kind kind = Kind::other;
  unsigned permissions = 0;  ///< read, write and execute bits
  std::int64_t changed = 0;  ///< when its content changed last, as far as the system's clock tells
  std::int64_t size = 0;     ///< bytes
};
std::optional<FileFacts> facts_of(const std::string& path);

/// True when both are there and the same.
bool same_file(const std::string& a, const std::string& b);

/// True when the path is a symbolic link, whatever it points to.
bool is_link(const std::string& path);
/// True when this user may write to the file.
bool may_write(const std::string& path);

/// A file descriptor that closes itself.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  bool is_open() const { return number_ >= 0; }
  int number() const { return number_; }
  /// Hands the descriptor over to who will close it.
  int release();
  void close();

 private:
  int number_ = -1;
};

/// A folder, to be locked; not open when the system refuses.
Descriptor open_folder(const std::string& folder);
/// A file that does not exist yet, for writing; nothing that has the name is touched, a link neither. Throws
/// RunTimeError 58 when the name is taken, 70, 75 or 76, naming `shown`.
Descriptor create_new(const std::string& path, const std::string& shown);
/// An existing plain file, for reading; not open when nothing has the name. Throws RunTimeError 70, 75 (a
/// folder or a device), naming `shown`.
Descriptor open_plain_file(const std::string& path, const std::string& shown);
/// An existing file, for locking it; not open when the system refuses.
Descriptor open_existing(const std::string& path);
/// The same open file once more. Throws RunTimeError 67 naming `shown`.
Descriptor duplicate(const Descriptor& file, const std::string& shown);
/// Gives an open file these permissions. Throws RunTimeError 70 naming `shown`.
void set_permissions(const Descriptor& file, unsigned permissions, const std::string& shown);

/// Reads up to `size` bytes; 0 at the end of the file. Throws RunTimeError 57 naming `shown`.
std::size_t read(const Descriptor& file, char* data, std::size_t size, const std::string& shown);
/// Writes everything. Throws RunTimeError 57, 61 (disk full), naming `shown`.
void write(const Descriptor& file, std::string_view data, const std::string& shown);
/// Waits until the disk holds what was written. Throws RunTimeError 57 or 61 naming `shown`.
void flush_to_disk(const Descriptor& file, const std::string& shown);
/// Closes; a write that the system reports only now is an error like any other: RunTimeError 57, 61, naming
/// `shown`.
void close(Descriptor file, const std::string& shown);

/// Locks an open file or folder against every other process, waiting for one that holds it. False when the
/// file system knows no locks. The lock goes with the last descriptor of the open file.
bool lock(const Descriptor& file);
/// The same without waiting; false too when somebody holds it.
bool try_lock(const Descriptor& file);

/// Gives a file another name; one that has the name already is replaced in the same moment. Throws
/// RunTimeError naming `shown`.
void rename_file(const std::string& from, const std::string& to, const std::string& shown);

/// Deletes one file, no folder. False when the system refuses, or when it is not there.
bool delete_file(const std::string& path);
/// The same; one that is not there is no error. Throws RunTimeError when the system refuses.
void must_delete_file(const std::string& path);

/// Calls `take` with every name in a folder but "." and ".."; none when it cannot be read.
void for_each_name(const std::string& folder, const std::function<void(std::string_view)>& take);

/// The path from the root, without "." and ".." among its folders: names are made by cutting a path at its
/// first ".". The file need not exist; that of a folder ends in a separator.
std::string absolute_path(const std::string& path);
/// The file that a link leads to in the end. Throws RunTimeError 75 when it leads nowhere.
std::string behind_links(const std::string& path);
/// Makes a folder and those above it that are not there. Throws RunTimeError 70, 75, 76.
void make_folders(const std::string& path);
/// Deletes a folder and everything in it; what cannot be deleted stays.
void delete_folder(const std::string& path);

/// The system's folder for temporary files, ending in the separator; it need not exist.
std::string temporary_folder();
/// Makes a folder that only this user can enter; its name is `start` and a few random letters. Returns its
/// path. Throws RunTimeError 61, 70, 76.
std::string make_private_folder(const std::string& start);
/// True for a folder (no link to one) that belongs to this user.
bool is_own_folder(const std::string& path);

/// True when a terminal is behind the descriptor.
bool is_terminal(int descriptor);

/// An environment variable; empty when it is not set.
std::string environment(const char* name);
/// The folder under which programs keep what belongs to this user, ending in the separator; it need not
/// exist. Empty when user_folder_variables() are not set.
std::string user_folder();
/// The environment variables that user_folder() goes by, for messages.
std::string_view user_folder_variables();
/// The folder of the running program, ending in the separator; empty when the system does not tell.
std::string executable_folder();
/// What stands behind the program's name on its command line, as UTF-8.
std::vector<std::string> arguments(int argc, char* const argv[]);
/// A moment in local time, as TZ says.
std::tm local_time(std::time_t moment);

/// Starts a program of the search path (or of this path) with one argument and does not wait for it. Throws
/// RunTimeError 53, 70.
void start_program(const std::string& program, const std::string& argument);
/// Opens an address or a file as the desktop would, and does not wait. Throws RunTimeError 53, 70.
void open_on_desktop(const std::string& address);

/// Number of this process.
int process_id();
/// True when a process of this number runs.
bool process_runs(int id);

}  // namespace varnisto::os
