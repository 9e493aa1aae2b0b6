#include "base/outputs.h"

#include <csignal>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/files.h"
#include "base/scratch_folder.h"
#include "base/text.h"
#include "support/errors.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;
using Files = std::map<std::string, std::string>;

class OutputsTest : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return dir.path() + name; }
  void write(const std::string& name, std::string_view bytes, Need need = Need::required) {
    FileHandle file = outputs.create(path(name), need);
    file.write(bytes);
    file.close();
  }

  TempDir dir;
  Outputs outputs;
};

TEST_F(OutputsTest, TakeTheirNamesTogether) {
  dir.write("a", "old");
  fs::permissions(path("a"), fs::perms{0640});
  const mode_t mask = ::umask(027);
  write("a", "first");
  EXPECT_EQ(read_file(outputs.current(path("a"))), "first");
  write("b", "new");
  write("a", "second");
  ::umask(mask);
  EXPECT_EQ(dir.read("a") + dir.read("b"), "old(missing)");
  EXPECT_TRUE(outputs.exists(path("b")));
  EXPECT_EQ(outputs.commit(), Strings{});
  EXPECT_EQ(dir.files(), (Files{{"a", "second"}, {"b", "new"}}));
  EXPECT_EQ(fs::status(path("a")).permissions(), fs::perms{0640});
  EXPECT_EQ(fs::status(path("b")).permissions(), fs::perms{0640});
}

TEST_F(OutputsTest, WhatWasBegunBehindAMarkIsGivenUp) {
  dir.write("a", "old");
  write("a", "kept");
  const std::size_t mark = outputs.mark();
  write("a", "given up");
  write("b", "given up");
  outputs.back_to(mark);
  EXPECT_FALSE(outputs.exists(path("b")));
  EXPECT_EQ(read_file(outputs.current(path("a"))), "kept");
  outputs.remove(path("a"));
  EXPECT_FALSE(outputs.exists(path("a")));
  EXPECT_EQ(dir.read("a"), "old");
  outputs.commit();
  EXPECT_EQ(dir.files(), Files{});
}

TEST_F(OutputsTest, ATargetThatMustNotBeReplacedIsAnError) {
  const std::string input = dir.write("log.all", "log");
  fs::create_hard_link(input, path("hard"));
  fs::create_symlink(input, path("soft"));
  fs::create_symlink(path("nothing"), path("dangling"));
  fs::create_directory(path("folder"));
  fs::permissions(dir.write("read-only", ""), fs::perms{0444});
  fs::create_hard_link(dir.write("LOG.ZSM", "summary"), path("other_case"));
  fs::create_symlink(path("new"), path("second_name"));
  outputs.protect({path("none"), input, path("log.zsm")});
  write("new", "new");
  const std::pair<const char*, int> rows[] = {{"log.all", 75},    {"hard", 75},        {"soft", 75},
                                              {"dangling", 75},   {"folder", 75},      {"read-only", 70},
                                              {"other_case", 75}, {"second_name", 75}, {"none/x", 76}};
  for (const auto& [name, error] : rows)
    EXPECT_EQ(error_of([&, &wanted = name] { outputs.create(path(wanted)); }), error) << name;
  const std::string text = error_text_of([&] { outputs.create(path("hard")); });
  EXPECT_TRUE(contains(text, path("hard") + " ") && contains(text, " " + input + " ")) << text;
  EXPECT_EQ(error_of([&] { outputs.create(input, Need::required, input); }), 0);
  EXPECT_EQ(dir.read("log.all"), "log");
}

TEST_F(OutputsTest, WhatALinkPointsToIsReplacedAndOtherHardLinksKeepTheOld) {
  fs::create_directory(path("real"));
  fs::create_symlink(dir.write("real/log", "old"), path("soft"));
  fs::create_hard_link(path("real/log"), path("other"));
  write("soft", "new");
  outputs.commit();
  EXPECT_TRUE(fs::is_symlink(path("soft")));
  EXPECT_EQ(dir.read("real/log") + dir.read("other"), "newold");
}

TEST_F(OutputsTest, ARenameThatFailsSaysWhatIsNew) {
  for (const char* name : {"a", "b", "c"}) write(name, "new");
  write("d", "new", Need::dispensable);
  for (const char* name : {"b", "d"}) fs::create_directories(path(name) + "/full");
  const std::string text = error_text_of([&] { outputs.commit(); });
  EXPECT_TRUE(text.starts_with(path("b") + " ") && contains(text, " " + path("a") + " ")) << text;
  EXPECT_EQ(dir.files(), (Files{{"a", "new"}}));
}

TEST_F(OutputsTest, DispensableOnesComeLastAndAreOnlyTold) {
  write("last", "new", Need::dispensable);
  write("a", "new");
  outputs.remove(path("in_the_way"));
  for (const char* name : {"last", "in_the_way"}) fs::create_directories(path(name) + "/full");
  const Strings failures = outputs.commit();
  ASSERT_EQ(failures.size(), 2U);
  EXPECT_TRUE(contains(failures[0], path("last"))) << failures[0];
  EXPECT_EQ(dir.files(), (Files{{"a", "new"}}));
}

TEST_F(OutputsTest, OnlyTemporariesThatNobodyHoldsAreCleared) {
  for (const char* name : {".a.log.123-4x.varnisto", ".a.1-b.varnisto"}) dir.write(name, "left");
  const Strings others = {".a.varnisto",      "a.1-b.varnisto",   ".a.x1-b.varnisto", ".a.1-.varnisto",
                          ".a.1-b_.varnisto", ".a.1-b.varnisto2", ".1-b.varnisto"};
  for (const std::string& name : others) dir.write(name, "");
  Outputs running;
  running.create(path("held"));
  write("a", "new");
  EXPECT_EQ(dir.files().size(), others.size() + 2);
  EXPECT_FALSE(dir.has(".a.1-b.varnisto"));
  running.commit();
  outputs.commit();
  EXPECT_TRUE(dir.has("held") && dir.has("a"));
  EXPECT_EQ(dir.files().size(), others.size() + 2);
}

/// Runs `work` in a process of its own, for whose scratch folders is room in `folder`, and which a signal or
/// _exit() ends; returns the process, and sets how it ended.
pid_t run_apart(const TempDir& folder, const std::function<void()>& work, int& status) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::setenv("TMPDIR", folder.path().c_str(), 1);
    work();
    ::_exit(0);
  }
  ::waitpid(child, &status, 0);
  return child;
}

TEST_F(OutputsTest, ASignalLeavesNothingUnfinished) {
  dir.write("a", "old");
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    int status = 0;
    run_apart(
        dir,
        [&] {
          install_signal_handlers();
          ScratchFolder scratch;
          const DoomedFile record{scratch.path() + "record"};
          FileHandle::create_new(record.path());
          write("a", "new");
          ::raise(signal);
        },
        status);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_EQ(dir.files(), (Files{{"a", "old"}}));
    EXPECT_TRUE(fs::directory_iterator { dir.path() } -> is_regular_file());  // no scratch folder
  }
}

TEST(ScratchFolders, OfThisUserGoWhenTheirProcessIsGone) {
  TempDir dir;
  int status = 0;
  const std::string gone = std::to_string(run_apart(
      dir,
      [] {
        ScratchFolder{}.path();
        ::_exit(0);
      },
      status));
  const std::string alive = "varnisto-" + std::to_string(::getpid()) + "-abc";
  run_apart(
      dir,
      [&] {
        const std::string dead = "varnisto-" + gone + "-abc", link = "varnisto-" + gone + "-link";
        for (const std::string& name :
             {dead + "/inner", alive, std::string{"varnisto-x"}, std::string{"varnisto-test-1"}})
          fs::create_directories(dir.path() + name);
        dir.write(dead + "/record", "left");
        fs::create_symlink(dir.path() + alive, dir.path() + link);
        clear_abandoned_scratch_folders();
        const bool kept =
            dir.has(alive) && dir.has("varnisto-x") && dir.has("varnisto-test-1") && dir.has(link);
        if (!kept || std::distance(fs::directory_iterator{dir.path()}, {}) != 4) ::_exit(1);
        ScratchFolder again;
        again.path();
        again.remove();
        if (!fs::is_directory(again.path())) ::_exit(2);
        ::setenv("TMPDIR", (dir.path() + "none").c_str(), 1);
        ::_exit(error_of([] { ScratchFolder{}.path(); }));
      },
      status);
  EXPECT_EQ(WEXITSTATUS(status), 76);
}

}  // namespace
}  // namespace varnisto::test
