#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "machine/Spooler.h"

/// The records of the spooler's calls, for who answers those calls: in the caller's buffer, which need not be
/// aligned. Texts are in the spooler's own encoding.
namespace machine {

/// Of PRINTER_INFO_2, in GetPrinterA and SetPrinterA.
inline constexpr std::uint32_t PrinterInfoLevel = 2;

// Answers of DocumentPropertiesA and DeviceCapabilitiesA.
inline constexpr std::int32_t SpoolerSucceeded = 1;
inline constexpr std::int32_t SpoolerFailed = -1;

/// A name in a field of so many bytes, with NULs behind it. One that is too long is cut, and one that fills
/// the field has no closing NUL.
void PutName(char* field, std::size_t size, std::string_view name);

/// A DEVMODE as bytes, with those of the driver behind it; dmSize and dmDriverExtra are filled in.
std::vector<char> DevModeRecord(DEVMODE mode, std::string_view driversBytes = {});

DEVMODE ReadDevMode(const void* record);

/// Does the record say that it sets this field (DM_...)?
bool Sets(const DEVMODE& mode, std::int32_t field);

/// What a printer lets be set: fields of a DEVMODE as bits (DM_...), and the codes of its papers and bins.
struct SettingsOffer {
    std::uint32_t Fields = 0;
    std::vector<std::int16_t> Papers;
    std::vector<std::int16_t> Bins;
};

/// The stored orientation, paper, bin and number of copies, with those of `asked` in their place that it sets
/// and the printer offers.
DEVMODE Merged(DEVMODE stored, const DEVMODE& asked, const SettingsOffer& offer);

/// A text of a PRINTER_INFO_2.
struct PrinterInfoText {
    char* PRINTER_INFO_2::*Member;
    std::string Bytes;
};

/// A PRINTER_INFO_2 with its DEVMODE and its texts behind it.
class PrinterInfoRecord {
  public:
    PrinterInfoRecord(std::uint32_t status, std::vector<char> devMode, std::vector<PrinterInfoText> texts);

    /// Bytes of all together.
    std::uint32_t Size() const;
    /// False, with nothing written, where there is no buffer or one of fewer bytes than Size().
    bool WriteTo(void* buffer, std::uint32_t size) const;

  private:
    std::uint32_t status_;
    std::vector<char> devMode_;
    std::vector<PrinterInfoText> texts_;
};

/// The settings that a PRINTER_INFO_2 brings; nothing if there is no record, or it points to none.
std::optional<DEVMODE> SettingsIn(const void* printerInfo);

/// Sides of a paper in tenths of a millimetre.
struct PaperSides {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
};

// Lists of DeviceCapabilitiesA: the number of entries and, where there is a buffer, the entries in it.
std::int32_t ListNumbers(const std::vector<std::int16_t>& numbers, void* output);
std::int32_t ListSides(const std::vector<PaperSides>& papers, void* output);
/// Each name in so many bytes, as PutName does it.
std::int32_t ListNames(const std::vector<std::string>& names, std::size_t bytes, void* output);

} // namespace machine
