#include "platform/launcher.h"

#include <spawn.h>
#include <unistd.h>
#include <vector>

#include "base/run_time_error.h"

extern char** environ;

namespace varnisto {
namespace {

/// The desktop's own way to open an address or a file.
constexpr const char* desktop_opener = "xdg-open";

void start(std::string program, std::string argument) {
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  char* const arguments[] = {program.data(), argument.data(), nullptr};
  pid_t pid = 0;
  const int code = posix_spawnp(&pid, program.c_str(), nullptr, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  if (code != 0) throw_file_error(code, program);
}

}  // namespace

void SystemLauncher::browser(const std::string& address) {
  start(desktop_opener, address);
}
void SystemLauncher::editor(const std::string& program, const std::string& file) {
  start(program, file);
}
void SystemLauncher::help(const std::string& file) {
  start(desktop_opener, file);
}

}  // namespace varnisto
