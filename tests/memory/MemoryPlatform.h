#pragma once

#include "machine/Platform.h"
#include "memory/MemoryBitmaps.h"
#include "memory/MemoryClock.h"
#include "memory/MemoryDesktop.h"
#include "memory/MemoryFonts.h"
#include "memory/MemoryLocale.h"
#include "memory/MemoryPrinter.h"
#include "memory/MemoryPrinters.h"
#include "memory/MemoryRandom.h"
#include "memory/MemoryRegistry.h"
#include "memory/MemorySpooler.h"
#include "memory/Recorder.h"

namespace memory {

/// A whole platform that touches nothing outside the process: tests, scenarios and benchmarks run the program
/// on it, see everything that it does as events, and let calls of the machine fail. It starts as a Dutch
/// machine with an empty registry, no printer and the clock's own time.
class MemoryPlatform {
  public:
    MemoryPlatform();
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;

    machine::Platform& Services() { return services_; }

    /// Adds a printer; the first becomes the system's default and the current one.
    PrintQueue& InstallPrinter(PrintQueue queue);

    Recorder recorder;
    MemoryDesktop desktop{recorder};
    MemoryRegistry registry;
    MemoryLocale locale{recorder};
    MemoryClock clock;
    MemoryRandom random;
    MemoryFonts fonts;
    MemoryPrinters printers{recorder};
    MemorySpooler spooler{recorder, printers};
    MemoryPrinter printer{recorder, printers, fonts};
    MemoryBitmaps bitmaps{recorder, fonts};

  private:
    machine::Platform services_{desktop, registry,          locale, clock, random, spooler, printers, printer,
                                bitmaps, desktop.Windows(), fonts};
};

} // namespace memory
