// compare_runs RUNS NAME COMMAND... [-- NAME COMMAND...]...: runs the commands in turn, RUNS times each, and
// prints for each its median and shortest time, its peak memory and its median as a multiple of the first
// one's.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

struct Command {
  const char* name;
  std::vector<char*> arguments;
  std::vector<double> milliseconds;
  long peak_kib = 0;
};

/// Runs the command once, without its output. False when it fails.
bool run(Command& command) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int descriptor : {0, 1, 2})
    posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_RDWR, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  const int code =
      posix_spawnp(&pid, command.arguments[0], &actions, nullptr, command.arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (code != 0) return false;
  int status = 0;
  rusage usage{};
  if (wait4(pid, &status, 0, &usage) < 0) return false;
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  command.milliseconds.push_back(took.count());
  command.peak_kib = std::max(command.peak_kib, usage.ru_maxrss);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::vector<Command> parse(int argc, char* argv[]) {
  std::vector<Command> commands;
  for (int i = 2; i < argc; ++i) {
    commands.push_back({argv[i], {}, {}, 0});
    while (++i < argc && std::strcmp(argv[i], "--") != 0) commands.back().arguments.push_back(argv[i]);
    if (commands.back().arguments.empty()) return {};
    commands.back().arguments.push_back(nullptr);
  }
  return commands;
}

}  // namespace

int main(int argc, char* argv[]) {
  const int runs = argc > 1 ? std::atoi(argv[1]) : 0;
  std::vector<Command> commands = parse(argc, argv);
  if (runs < 1 || commands.empty()) {
    std::fputs("usage: compare_runs RUNS NAME COMMAND... [-- NAME COMMAND...]...\n", stderr);
    return 2;
  }
  for (int i = 0; i < runs; ++i) {
    for (Command& command : commands) {
      if (run(command)) continue;
      std::fprintf(stderr, "%s failed\n", command.name);
      return 1;
    }
  }
  std::printf("%-26s %10s %10s %10s %8s\n", "", "median ms", "min ms", "peak KiB", "ratio");
  double first = 0;
  for (Command& command : commands) {
    std::sort(command.milliseconds.begin(), command.milliseconds.end());
    const double median = command.milliseconds[command.milliseconds.size() / 2];
    if (first == 0) first = median;
    std::printf("%-26s %10.2f %10.2f %10ld %8.2f\n", command.name, median, command.milliseconds.front(),
                command.peak_kib, median / first);
  }
  return 0;
}
