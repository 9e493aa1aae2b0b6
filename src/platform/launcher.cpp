#include "platform/launcher.h"

#include "base/os.h"

namespace varnisto {

void SystemLauncher::browser(const std::string& address) {
  os::open_on_desktop(address);
}
void SystemLauncher::editor(const std::string& program, const std::string& file) {
  os::start_program(program, file);
}
void SystemLauncher::help(const std::string& file) {
  os::open_on_desktop(file);
}

}  // namespace varnisto
