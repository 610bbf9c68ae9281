#pragma once

#include "platform/Platform.h"
#include "platform/memory/MemoryBitmaps.h"
#include "platform/memory/MemoryClock.h"
#include "platform/memory/MemoryDesktop.h"
#include "platform/memory/MemoryLocale.h"
#include "platform/memory/MemoryPrinter.h"
#include "platform/memory/MemoryPrinters.h"
#include "platform/memory/MemoryRandom.h"
#include "platform/memory/MemoryRegistry.h"
#include "platform/memory/MemorySpooler.h"
#include "platform/memory/Recorder.h"

namespace platform {

/// A whole platform that touches nothing outside the process: tests, scenarios and benchmarks run the program
/// on it, see everything that it does as events, and let calls of the machine fail. It starts as a Dutch
/// machine with an empty registry, no printer and the clock's own time.
class MemoryPlatform {
  public:
    MemoryPlatform();
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;

    platform::Platform& Services() { return services_; }

    /// Adds a printer; the first becomes the system's default and the current one.
    PrintQueue& InstallPrinter(PrintQueue queue);

    Recorder recorder;
    MemoryDesktop desktop{recorder};
    MemoryRegistry registry;
    MemoryLocale locale{recorder};
    MemoryClock clock;
    MemoryRandom random;
    MemoryPrinters printers{recorder};
    MemorySpooler spooler{recorder, printers};
    MemoryPrinter printer{recorder, printers};
    MemoryBitmaps bitmaps{recorder};

  private:
    platform::Platform services_{desktop, registry, locale,  clock,   random,
                                 spooler, printers, printer, bitmaps, desktop.Windows()};
};

} // namespace platform
