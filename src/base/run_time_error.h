#pragma once
// The two ways in which a routine fails. Both end the running action; only the wrappers that run a top-level
// action (a menu click, a button, a command) catch them.

#include <stdexcept>
#include <string>
#include <string_view>

namespace varnisto {

/// A run-time error with a number. what() says where it happened: a file, a line, a value.
struct RunTimeError : std::runtime_error {
  enum Number {
    bad_argument = 5,
    overflow = 6,
    out_of_memory = 7,
    bad_subscript = 9,
    type_mismatch = 13,
    bad_file_name = 52,
    file_not_found = 53,
    file_already_open = 55,
    device_io_error = 57,
    file_already_exists = 58,
    disk_full = 61,
    past_end = 62,
    too_many_files = 67,
    permission_denied = 70,
    path_access_error = 75,
    path_not_found = 76,
  };

  RunTimeError(Number n, const std::string& where) : std::runtime_error(where), number(n) {}

  Number number;
};

/// The user's words for an error number, e.g. "オーバーフローしました".
std::string_view error_text(RunTimeError::Number number);

/// Number, words and place in one line, as the user sees an error.
std::string describe(const RunTimeError& error);

}  // namespace varnisto
