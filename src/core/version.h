#pragma once

#include <string_view>

namespace varnisto {

/// The program's version, as settings files and Cabrillo headers carry it: the project's in CMakeLists.txt.
extern const std::string_view program_version;
/// The signature that Cabrillo headers carry before the version.
inline constexpr std::string_view program_signature = "Varnisto.exe ver ";
/// Where the program lives and who answers for it, as exported files name them.
inline constexpr std::string_view home_page = "https://varnisto.example";
inline constexpr std::string_view contact_address = "contact@varnisto.example";

}  // namespace varnisto
