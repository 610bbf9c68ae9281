#pragma once

#include <string>

#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtDesktop.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

// The names by which its forms are found.
inline constexpr const char* Wizard = "frmMain";
inline constexpr const char* Manager = "frmPrintManager";
inline constexpr const char* SetupForm = "frmPrintManagerSetup";
inline constexpr const char* Preview = "frmPrintPreview";

/// The whole program with real windows, and all else in memory.
struct Program {
    Program() { memory.InstallPrinter({.Name = "Proefprinter"}); }

    /// A setting of the main application, before the start.
    void Set(const std::string& name, const std::string& value);
    void Start() { form.Show(); }

    memory::MemoryPlatform memory;
    desktop::qt::QtDesktop desktop;
    desktop::qt::QtBitmaps bitmaps;
    machine::Platform services{desktop,       memory.registry,   memory.locale,   memory.clock,
                               memory.random, memory.spooler,    memory.printers, memory.printer,
                               bitmaps,       desktop.Windows(), memory.fonts};
    state::AppState state;
    forms::Session session{desktop};
    wizard::frmMain form{session, services, state};
};
