#include "core/trace.h"

#include <utility>

#include "base/run_time_error.h"

namespace varnisto {

void Trace::open(const std::string& path) {
  close();
  log_.emplace(FileHandle::create_new(path));
  debug_log_open = 1;
}

void Trace::close() {
  debug_log_open = 0;
  attempt([this] { log_->close(); });
  log_.reset();
}

void Trace::line(std::string_view text) {
  if (!armed() || !log_) return;
  attempt([&] {
    log_->put(text);
    log_->flush();
  });
}

template <class Write>
void Trace::attempt(Write write) {
  try {
    if (log_) write();
  } catch (const RunTimeError& error) {
    failure_ = describe(error);
    debug_log_open = 0;
    log_.reset();
  }
}

std::string Trace::take_failure() {
  return std::exchange(failure_, "");
}

}  // namespace varnisto
