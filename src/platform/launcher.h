#pragma once

#include "platform/platform.h"

namespace varnisto {

/// Starts programs of the desktop and does not wait for them.
class SystemLauncher final : public Launcher {
 public:
  void browser(const std::string& address) override;
  /// Throws RunTimeError 53 or 70 when the program cannot be started.
  void editor(const std::string& program, const std::string& file) override;
  void help(const std::string& file) override;
};

}  // namespace varnisto
