#pragma once

#include "platform/qt/CupsMedia.h"
#include "platform/qt/UserDefaults.h"

namespace platform::qt {

/// The options by which queues know a paper; some heed the one name, some the other. An empty value is an
/// option that the queue does not have. None at all for a stand-in: the queue prints on what it has.
CupsOptions PaperOptions(const Paper& paper);
/// The same for a bin.
CupsOptions BinOptions(const Bin& bin);

/// The paper that options name, `media` also as one of several keywords ("A4,Upper"); nullptr if none is.
const Paper* PaperIn(const CupsMedia& media, const CupsOptions& options);
/// The same for a bin.
const Bin* BinIn(const CupsMedia& media, const CupsOptions& options);

/// Takes out what would change the pages of a document that is complete (its pages turned, shrunk, left out
/// or several on a sheet) and what would name another paper than `paper`, or another bin where `bin` is
/// named. Option names are read in any letter case, as the server reads them.
void KeepPagesAsDrawn(CupsOptions& options, bool paper, bool bin);

} // namespace platform::qt
