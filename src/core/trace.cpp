#include "core/trace.h"

namespace varnisto {

void Trace::open(const std::string& path) {
  close();
  log_.emplace(FileHandle::create_new(path));
  debug_log_open = 1;
}

void Trace::close() {
  debug_log_open = 0;
  if (log_) log_->close();
  log_.reset();
}

void Trace::line(std::string_view text) {
  if (!armed() || !log_) return;
  log_->put(text);
  log_->flush();
}

}  // namespace varnisto
