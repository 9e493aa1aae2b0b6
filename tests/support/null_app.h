#pragma once
// A program without an outside world: nothing is read, written, shown or started.

#include "core/app.h"

namespace varnisto::test {

class NullProfile final : public Profile {
 public:
  bool exists(const std::string&) override { return false; }
  std::string get(const std::string&, std::string_view, std::string_view) override { return ""; }
  void set(const std::string&, std::span<const ProfileEntry>) override {}
};

class NullClock final : public Clock {
 public:
  std::tm now() const override { return {}; }
};

class NullSort final : public TextSort {
 public:
  int ksort(const std::string&) override { return 0; }
};

class NullLauncher final : public Launcher {
 public:
  void browser(const std::string&) override {}
  void editor(const std::string&, const std::string&) override {}
  void help(const std::string&) override {}
};

class NullDesk final : public Desk {
 public:
  int message_box(const MessageBox&) override { return 1; }
  std::optional<std::string> open_file_dialog(const OpenFileRequest&) override { return std::nullopt; }
  void show(FormName) override {}
  void text_shown(std::string_view, Color) override {}
  void hourglass(bool) override {}
};

struct NullApp {
  NullProfile profile;
  NullClock clock;
  NullSort sort;
  NullLauncher launcher;
  NullDesk desk;
  Platform platform{profile, clock, sort, launcher};
  App app{platform, desk};
};

}  // namespace varnisto::test
