#pragma once

#include <string>

namespace varnisto {

/// The program folder, ending in "/": `option` when it is not empty, else the environment variable
/// VARNISTO_DIR, else the executable's folder when it holds contest_name.cfg, else $XDG_CONFIG_HOME/varnisto.
/// The last one is made when it is not there and, as long as it holds no settings, gets the shipped list
/// files it lacks. Throws RunTimeError.
std::string find_program_folder(const std::string& option);

/// The folder of the shipped list files and the help, ending in "/"; empty when the program was not
/// installed.
std::string shipped_folder();

}  // namespace varnisto
