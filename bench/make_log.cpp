// make_log STEM QSOS: writes STEM.all and STEM.zsm.

#include <cstdio>
#include <cstdlib>

#include "base/run_time_error.h"
#include "log_maker.h"

int main(int argc, char* argv[]) try {
  if (argc != 3) {
    std::fputs("usage: make_log STEM QSOS\n", stderr);
    return 2;
  }
  varnisto::bench::make_log(argv[1], std::strtoul(argv[2], nullptr, 10));
  return 0;
} catch (const varnisto::RunTimeError& error) {
  std::fprintf(stderr, "%s\n", varnisto::describe(error).c_str());
  return 1;
}
