#pragma once

#include <string>
#include <vector>

#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/UserDefaults.h"

namespace desktop::cups {

/// The options by which queues know a paper; some heed the one name, some the other. None at all for a
/// stand-in: the queue prints on what it has.
CupsOptions PaperOptions(const Paper& paper);
/// The same for a bin.
CupsOptions BinOptions(const Bin& bin);

/// The paper that options name, `media` also as one of several keywords ("A4,Upper"); nullptr if none is.
const Paper* PaperIn(const CupsMedia& media, const CupsOptions& options);
/// The same for a bin.
const Bin* BinIn(const CupsMedia& media, const CupsOptions& options);
/// The keyword of a size that the user has made up, if options name one.
std::string OwnSizeIn(const CupsOptions& options);

/// What a job says: the paper and the bin, the user's own options of quality, colour, finishing and
/// accounting, and that every page comes once, unscaled, in its order and on a sheet of its own, whatever the
/// queue's maker, the server or the user have set. `known` are the queue's attributes; `bin` may be none.
CupsOptions JobOptions(const CupsMedia& media, const CupsOptions& own,
                       const std::map<std::string, std::string>& known, const Paper& paper, const Bin* bin);

/// The attributes of a queue that JobOptions looks at.
std::vector<const char*> AttributesForJobs();

} // namespace desktop::cups
