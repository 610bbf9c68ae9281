#pragma once

#include <string>

#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtDesktop.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

/// The whole program with real windows, and all else in memory.
struct Program {
    Program() { memory.InstallPrinter({.Name = "Proefprinter"}); }

    /// A setting of the main application, before the start.
    void Set(const std::string& name, const std::string& value);
    void Start() { form.Show(); }

    platform::MemoryPlatform memory;
    platform::qt::QtDesktop desktop;
    platform::qt::QtBitmaps bitmaps;
    platform::Platform services{desktop,       memory.registry,  memory.locale,   memory.clock,
                                memory.random, memory.spooler,   memory.printers, memory.printer,
                                bitmaps,       desktop.Windows()};
    wizard::AppState state;
    forms::Session session{desktop};
    wizard::frmMain form{session, services, state};
};
