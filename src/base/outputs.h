#pragma once
// The outputs of one run, written all or not at all: each goes to a temporary beside its name, and when every
// step has succeeded all of them take their names at once. Whatever fails before leaves every earlier file as
// it was.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_handle.h"
#include "base/temporary.h"

namespace varnisto {

/// What an output is to its run.
enum class Need {
  required,     ///< without it the run has failed
  dispensable,  ///< takes its name behind the others; that it cannot is told and no error
};

class Outputs {
 public:
  Outputs() = default;
  Outputs(const Outputs&) = delete;
  Outputs& operator=(const Outputs&) = delete;

  /// Files that the run reads and must never replace, by whatever name or link.
  void protect(std::vector<std::string> inputs);

  /// Begins a new version of the file `path`; a file that this run has written under the name already can be
  /// read on until the run ends. What a link points to is replaced, not the link. Throws RunTimeError 70 (not
  /// writable), 75 (a folder, a device, a link to nothing, a protected input, a file that another output
  /// leads to: what() names both), 76, 61. `rewritten`: the protected input that it is about to replace all
  /// the same.
  FileHandle create(const std::string& path, Need need = Need::required, std::string_view rewritten = "");
  /// The file goes when the others take their names, and what this run wrote under its name with it.
  void remove(const std::string& path);
  /// What this run wrote under the name no longer counts.
  void give_up(const std::string& path);

  /// Where the file of this name is to be read: its newest version of this run, or the file itself.
  const std::string& current(const std::string& path) const;
  /// True when the run has written the file or it is there.
  bool exists(const std::string& path) const;

  /// Gives every file its name, in the order of their first versions, under the locks of their folders.
  /// Returns what went wrong with dispensable ones. Throws RunTimeError when a required one cannot be
  /// replaced; what() then names those that are new already. Nothing is pending afterwards.
  std::vector<std::string> commit();

  /// A point to come back to: what was begun behind it is given up.
  std::size_t mark() const { return pending_.size(); }
  void back_to(std::size_t mark);

 private:
  struct Pending {
    std::string path;                 ///< as the program names it
    std::unique_ptr<Temporary> file;  ///< its new version, or null
    Need need = Need::required;
    bool goes = false;  ///< without a new version: the file is to go, else it stays as it is
  };
  const Pending* newest(const std::string& path) const;
  void refuse_input(const std::string& path, const std::string& target, std::string_view rewritten) const;
  void refuse_second_name(const std::string& path, const std::string& target) const;
  std::unique_ptr<Temporary> make_temporary(const std::string& target);
  static std::vector<Pending> newest_of_each(std::vector<Pending> pending);

  std::vector<std::string> inputs_;
  std::vector<Pending> pending_;      ///< in the order in which they were begun
  std::vector<std::string> cleared_;  ///< folders without what killed runs left
};

}  // namespace varnisto
