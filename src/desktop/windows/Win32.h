#pragma once

// The Win32 headers, for all of this folder. Our own headers come first: Windows defines as macros some names
// that they declare as constants. Macros that would rename our classes and members go again; the calls behind
// them are named in full here (DrawTextW, GetPrinterA).
#include "forms/Desktop.h"
#include "machine/Canvas.h"
#include "machine/Locale.h"
#include "machine/Printer.h"
#include "machine/Registry.h"
#include "machine/Spooler.h"
#include "machine/WindowProcedures.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <winspool.h>

#undef DEVMODE
#undef DeviceCapabilities
#undef DrawText
#undef GetObject
#undef GetUserName
#undef OpenPrinter
#undef PRINTER_DEFAULTS
#undef PRINTER_INFO_2
#undef StartDoc
#undef Yield
