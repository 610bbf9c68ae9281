#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace machine {

/// Settings of a printer: the first 124 bytes of the structure that Windows drivers exchange, field for
/// field, so that a buffer from a real driver can be read as this. A driver's own data may follow it.
struct DEVMODE {
    char dmDeviceName[32];
    std::uint16_t dmSpecVersion;
    std::uint16_t dmDriverVersion;
    std::uint16_t dmSize;
    std::uint16_t dmDriverExtra;
    std::uint32_t dmFields;
    std::int16_t dmOrientation;
    std::int16_t dmPaperSize;
    std::int16_t dmPaperLength;
    std::int16_t dmPaperWidth;
    std::int16_t dmScale;
    std::int16_t dmCopies;
    std::int16_t dmDefaultSource;
    std::int16_t dmPrintQuality;
    std::int16_t dmColor;
    std::int16_t dmDuplex;
    std::int16_t dmYResolution;
    std::int16_t dmTTOption;
    std::int16_t dmCollate;
    char dmFormName[32];
    std::uint16_t dmLogPixels;
    std::uint32_t dmBitsPerPel;
    std::uint32_t dmPelsWidth;
    std::uint32_t dmPelsHeight;
    std::uint32_t dmDisplayFlags;
    std::uint32_t dmDisplayFrequency;
};
static_assert(sizeof(DEVMODE) == 124);

// Bits of dmFields, which are also the selectors of a field.
inline constexpr std::int32_t DM_ORIENTATION = 1;
inline constexpr std::int32_t DM_PAPERSIZE = 2;
inline constexpr std::int32_t DM_PAPERLENGTH = 4;
inline constexpr std::int32_t DM_PAPERWIDTH = 8;
inline constexpr std::int32_t DM_SCALE = 16;
inline constexpr std::int32_t DM_COPIES = 256;
inline constexpr std::int32_t DM_DEFAULTSOURCE = 512;
inline constexpr std::int32_t DM_PRINTQUALITY = 1024;
inline constexpr std::int32_t DM_COLOR = 2048;
inline constexpr std::int32_t DM_COLLATE = -32768; // bit 15, as the signed 16-bit number that selects it

// Modes of DocumentPropertiesA.
inline constexpr std::uint32_t DM_OUT_BUFFER = 2;
inline constexpr std::uint32_t DM_IN_BUFFER = 8;

// Capabilities of DeviceCapabilitiesA.
inline constexpr std::uint16_t DC_PAPERS = 2;
inline constexpr std::uint16_t DC_PAPERSIZE = 3;
inline constexpr std::uint16_t DC_BINS = 6;
inline constexpr std::uint16_t DC_BINNAMES = 12;
inline constexpr std::uint16_t DC_PAPERNAMES = 16;

// Width of a name in the lists of DC_PAPERNAMES and DC_BINNAMES, in bytes.
inline constexpr std::size_t PaperNameBytes = 64;
inline constexpr std::size_t BinNameBytes = 24;

// What is believed of a driver. Some write more than they have told, or tell more at the next call, so each
// buffer of theirs has room to spare behind it.

/// Bytes of data. A driver's settings take 128 KB at most; a larger number is an error of the driver and not
/// worth the memory.
inline constexpr std::size_t MostDriverBytes = 16U << 20U;
inline constexpr std::size_t SpareDriverBytes = 128;
/// Entries of a list, whose positions are 16-bit numbers.
inline constexpr std::size_t MostDriverEntries = 32767;
inline constexpr std::size_t SpareDriverEntries = 1024;

/// What the spooler knows of a printer. The texts are pointers into the buffer that was filled, in the
/// machine's code page. An actual buffer is larger than this record.
struct PRINTER_INFO_2 {
    char* pServerName;
    char* pPrinterName;
    char* pShareName;
    char* pPortName;
    char* pDriverName;
    char* pComment;
    char* pLocation;
    DEVMODE* pDevMode;
    char* pSepFile;
    char* pPrintProcessor;
    char* pDatatype;
    char* pParameters;
    void* pSecurityDescriptor;
    std::uint32_t Attributes;
    std::uint32_t Priority;
    std::uint32_t DefaultPriority;
    std::uint32_t StartTime;
    std::uint32_t UntilTime;
    std::uint32_t Status;
    std::uint32_t cJobs;
    std::uint32_t AveragePPM;
};

/// How a printer is opened.
struct PRINTER_DEFAULTS {
    const char* pDatatype;
    const DEVMODE* pDevMode;
    std::uint32_t DesiredAccess;
};

/// STANDARD_RIGHTS_REQUIRED with PRINTER_ACCESS_USE: enough to change one's own defaults, no administrator's
/// right.
inline constexpr std::uint32_t PrinterAccessUse = 0xF0008;

/// Handle of an open printer, pointer-wide; 0 is none.
using PrinterHandle = std::uintptr_t;

/// The spooler's calls by the names that Windows gives them; Windows passes them on, other machines answer
/// them from their own queues. Names, ports and texts are 8-bit text as Encode gives it. None throws: failure
/// is told by the result, as on Windows. The program promises an order of calls, not just an outcome.
class Spooler {
  public:
    virtual ~Spooler() = default;

    /// Text to and from the spooler's own encoding: the machine's code page, where it has one.
    virtual std::string Encode(std::string_view utf8) const { return base::text::ToCodePage(utf8); }
    virtual std::string Decode(std::string_view bytes) const { return base::text::FromCodePage(bytes); }

    /// What the user is to know of a printer's stored defaults besides its status, in a few words; empty if
    /// nothing is wrong with them.
    virtual std::string Trouble(const std::string&) { return {}; }

    virtual bool OpenPrinterA(const std::string& printer, PrinterHandle& handle,
                              const PRINTER_DEFAULTS& defaults) = 0;
    virtual bool ClosePrinter(PrinterHandle handle) = 0;

    /// Mode 0: the size of the printer's DEVMODE with the driver's data. DM_OUT_BUFFER: the printer's present
    /// settings into `output`. DM_IN_BUFFER | DM_OUT_BUFFER: the settings of `input`, made valid, into
    /// `output` (both may be one buffer). Negative is failure; 1 success.
    virtual std::int32_t DocumentPropertiesA(PrinterHandle handle, const std::string& printer, void* output,
                                             const void* input, std::uint32_t mode) = 0;

    /// Level 2: a PRINTER_INFO_2 and the texts behind it into `buffer` of `size` bytes. With size 0 only
    /// `needed` is set, and the call fails.
    virtual bool GetPrinterA(PrinterHandle handle, std::uint32_t level, void* buffer, std::uint32_t size,
                             std::uint32_t& needed) = 0;

    /// Level 2, command 0: writes the stored defaults (pDevMode) of the printer.
    virtual bool SetPrinterA(PrinterHandle handle, std::uint32_t level, const void* buffer,
                             std::uint32_t command) = 0;

    /// Number of papers or bins; with `output` also their data: DC_PAPERS and DC_BINS one 16-bit number each,
    /// DC_PAPERSIZE two 32-bit numbers each (tenths of a millimetre), DC_PAPERNAMES and
    /// DC_BINNAMES a name each, not NUL-closed when it fills its room. -1 is failure.
    virtual std::int32_t DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                             std::uint16_t capability, void* output) = 0;
};

} // namespace machine
