#pragma once

#include <string>

/// Where a user's own files lie.
namespace desktop::regfile {

/// The user's home folder; empty if the user has none.
std::string HomeFolder();

/// The folder that a variable of the environment names ("XDG_CONFIG_HOME"), else the one of that name in the
/// home folder ("/.config"). Empty if the user has no home either. A name that is no whole path counts for
/// nothing.
std::string UserFolder(const char* variable, const std::string& belowHome);

} // namespace desktop::regfile
