#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace varnisto {

/// The whole command-line program: arguments without the program's name in, exit status out.
int run_cli(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace varnisto
