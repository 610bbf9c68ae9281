#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/UserDefaults.h"

/// What a queue does with every document because its maker, its server or the user has set it so.
namespace desktop::cups {

/// Options that name the resolution, where a printer has more than one.
inline constexpr std::array<const char*, 4> ResolutionOptions = {"Resolution", "SetResolution",
                                                                 "JCLResolution", "CNRes_PGP"};

/// Dots to the inch in "600dpi" or "600x300dpi", the fewer of the two directions; 0 for any other text.
int DotsIn(std::string_view resolution);

/// The same of a queue; 0 if nobody tells. `own` are the user's options, `known` the queue's attributes.
int DotsPerInchOf(const CupsMedia& media, const CupsOptions& own,
                  const std::map<std::string, std::string>& known);

/// What no job of the program overrides and changes what stands on the paper, as the driver words it.
std::vector<std::string> ImposedOn(const CupsMedia& media, const CupsOptions& own,
                                   const std::map<std::string, std::string>& known);

} // namespace desktop::cups
