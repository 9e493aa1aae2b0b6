#pragma once

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace varnisto::test {

/// While this lives a test that runs as root obeys permissions like everybody: it is another user, to whom
/// these folders and their files belong.
class OtherUser {
 public:
  explicit OtherUser(const std::vector<std::string>& folders) : was_root_(::geteuid() == 0) {
    if (!was_root_) return;
    for (const std::string& folder : folders) {
      give(folder);
      for (const auto& entry : std::filesystem::recursive_directory_iterator{folder})
        give(entry.path().string());
    }
    if (::seteuid(nobody) != 0) ::abort();
  }
  ~OtherUser() {
    if (was_root_ && ::seteuid(0) != 0) ::abort();
  }
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  static void give(const std::string& path) {
    if (::lchown(path.c_str(), nobody, static_cast<gid_t>(-1)) != 0) ::abort();
  }

  bool was_root_;
};

}  // namespace varnisto::test
