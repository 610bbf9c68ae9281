// The records of machine/Spooler.h are read out of buffers that Windows and its drivers fill, so they have
// to lie in memory as the system's own do. This file holds nothing but the proof.

#include <cstddef>
#include <type_traits>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

namespace {

static_assert(sizeof(machine::DEVMODE) <= sizeof(::DEVMODEA), "the system's record may go on behind ours");
static_assert(sizeof(machine::PRINTER_INFO_2) == sizeof(::PRINTER_INFO_2A));
static_assert(sizeof(machine::PRINTER_DEFAULTS) == sizeof(::PRINTER_DEFAULTSA));
static_assert(sizeof(machine::PrinterHandle) == sizeof(::HANDLE));
static_assert(std::is_standard_layout_v<machine::DEVMODE> &&
              std::is_standard_layout_v<machine::PRINTER_INFO_2>);

template <class Type>
constexpr std::size_t BytesOf = sizeof(Type);

#define SAME_FIELD(Ours, Theirs, Field)                                                                      \
    static_assert(offsetof(Ours, Field) == offsetof(Theirs, Field));                                         \
    static_assert(BytesOf<decltype(Ours::Field)> == BytesOf<decltype(Theirs::Field)>)

#define SAME_IN_DEVMODE(Field) SAME_FIELD(machine::DEVMODE, ::DEVMODEA, Field)
SAME_IN_DEVMODE(dmDeviceName);
SAME_IN_DEVMODE(dmSpecVersion);
SAME_IN_DEVMODE(dmDriverVersion);
SAME_IN_DEVMODE(dmSize);
SAME_IN_DEVMODE(dmDriverExtra);
SAME_IN_DEVMODE(dmFields);
SAME_IN_DEVMODE(dmOrientation);
SAME_IN_DEVMODE(dmPaperSize);
SAME_IN_DEVMODE(dmPaperLength);
SAME_IN_DEVMODE(dmPaperWidth);
SAME_IN_DEVMODE(dmScale);
SAME_IN_DEVMODE(dmCopies);
SAME_IN_DEVMODE(dmDefaultSource);
SAME_IN_DEVMODE(dmPrintQuality);
SAME_IN_DEVMODE(dmColor);
SAME_IN_DEVMODE(dmDuplex);
SAME_IN_DEVMODE(dmYResolution);
SAME_IN_DEVMODE(dmTTOption);
SAME_IN_DEVMODE(dmCollate);
SAME_IN_DEVMODE(dmFormName);
SAME_IN_DEVMODE(dmLogPixels);
SAME_IN_DEVMODE(dmBitsPerPel);
SAME_IN_DEVMODE(dmPelsWidth);
SAME_IN_DEVMODE(dmPelsHeight);
SAME_IN_DEVMODE(dmDisplayFlags);
SAME_IN_DEVMODE(dmDisplayFrequency);

#define SAME_IN_INFO(Field) SAME_FIELD(machine::PRINTER_INFO_2, ::PRINTER_INFO_2A, Field)
SAME_IN_INFO(pServerName);
SAME_IN_INFO(pPrinterName);
SAME_IN_INFO(pShareName);
SAME_IN_INFO(pPortName);
SAME_IN_INFO(pDriverName);
SAME_IN_INFO(pComment);
SAME_IN_INFO(pLocation);
SAME_IN_INFO(pDevMode);
SAME_IN_INFO(pSepFile);
SAME_IN_INFO(pPrintProcessor);
SAME_IN_INFO(pDatatype);
SAME_IN_INFO(pParameters);
SAME_IN_INFO(pSecurityDescriptor);
SAME_IN_INFO(Attributes);
SAME_IN_INFO(Priority);
SAME_IN_INFO(DefaultPriority);
SAME_IN_INFO(StartTime);
SAME_IN_INFO(UntilTime);
SAME_IN_INFO(Status);
SAME_IN_INFO(cJobs);
SAME_IN_INFO(AveragePPM);

#define SAME_IN_DEFAULTS(Field) SAME_FIELD(machine::PRINTER_DEFAULTS, ::PRINTER_DEFAULTSA, Field)
SAME_IN_DEFAULTS(pDatatype);
SAME_IN_DEFAULTS(pDevMode);
SAME_IN_DEFAULTS(DesiredAccess);

} // namespace

} // namespace desktop::windows
