#include <array>
#include <csignal>
#include <unistd.h>
#include <utility>

#include "base/interruption.h"

namespace varnisto {
namespace {

constexpr std::array ending_signals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// The file listed last.
std::atomic<DoomedFile*> newest{nullptr};

sigset_t ending_set() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : ending_signals) sigaddset(&set, signal);
  return set;
}

void delete_now(const char* name) noexcept {
  if (::unlink(name) != 0) ::rmdir(name);
}

void end_program(int signal) {
  delete_doomed_files();
  std::signal(signal, SIG_DFL);
  std::raise(signal);  // waits until this handler returns
}

}  // namespace

void install_signal_handlers() {
  struct sigaction ending {};
  ending.sa_handler = end_program;
  ending.sa_mask = ending_set();
  for (const int signal : ending_signals) {
    struct sigaction old {};
    if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
      sigaction(signal, &ending, nullptr);
  }
  std::signal(SIGXFSZ, SIG_IGN);
}

DoomedFile::DoomedFile(std::string path)
    : path_(std::move(path)), name_(path_.c_str()), below_(newest.load()) {
  newest = this;
}

DoomedFile::~DoomedFile() {
  if (!spared_) delete_now(name_);
  std::atomic<DoomedFile*>* place = &newest;
  while (place->load() != this) place = &place->load()->below_;
  *place = below_.load();
}

void delete_doomed_files() noexcept {
  for (const DoomedFile* file = newest; file; file = file->below_)
    if (!file->spared_) delete_now(file->name_);
}

SignalsWait::SignalsWait() {
  const sigset_t set = ending_set();
  sigprocmask(SIG_BLOCK, &set, nullptr);
}

SignalsWait::~SignalsWait() {
  const sigset_t set = ending_set();
  sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace varnisto
