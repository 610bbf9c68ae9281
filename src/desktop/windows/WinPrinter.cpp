#include "desktop/windows/WinPrinter.h"

#include <algorithm>
#include <utility>

#include "base/Resume.h"
#include "base/Units.h"
#include "desktop/windows/WideText.h"
#include "machine/PrinterErrors.h"

namespace desktop::windows {

namespace {

using base::TwipsPerInch;

/// A driver that does not tell what it offers is asked by trying.
bool Offers(const DriverSettings& settings, WORD capability, std::int16_t value) {
    const std::vector<short> offered = settings.Offered(capability);
    return offered.empty() || std::find(offered.begin(), offered.end(), value) != offered.end();
}

} // namespace

WinPrinter::WinPrinter(WinPrinters& printers, machine::PrintFailureTeller teller)
    : printers_(printers), teller_(std::move(teller)), canvas_(static_cast<PageDevice&>(*this)) {
    Drawing.Font = machine::PrintersOwnFont;
}

const machine::PrinterEntry& WinPrinter::Entry() {
    if (!entry_) {
        const int index = printers_.DefaultIndex();
        if (index < 0) {
            throw base::RuntimeError(base::ErrorPrinter, "Er is geen printer.");
        }
        Use(index);
    }
    return *entry_;
}

DriverSettings& WinPrinter::Settings() {
    const machine::PrinterEntry& entry = Entry();
    if (!settings_) {
        settings_.emplace(ToWide(entry.DeviceName));
    }
    return *settings_;
}

void WinPrinter::Assign(int index) {
    // Also where the other printer is not there: what is printed next must not go on in this document.
    Abandon();
    Use(index);
}

void WinPrinter::Abandon() {
    begun_ = false;
    document_.reset();
}

void WinPrinter::Use(int index) {
    machine::PrinterEntry entry = printers_.Item(index);
    device_.Reset();
    settings_.reset();
    entry_ = std::move(entry);
    Drawing = machine::DrawingState{0, 0, machine::PrintersOwnFont};
    // A printer that cannot be reached becomes the current one all the same: its name is to be had, and what
    // is printed must not go to the one before it.
    base::Resume([this] { Settings(); });
}

HDC WinPrinter::Device() {
    const DriverSettings& settings = Settings();
    if (changed_ && document_ == nullptr) {
        device_.Reset();
    }
    if (!device_) {
        const std::vector<std::byte> mode = settings.ForPrinting();
        ::SetLastError(ERROR_SUCCESS); // a driver need not tell why
        device_.Reset(::CreateDCW(L"WINSPOOL", settings.Printer().c_str(), nullptr,
                                  reinterpret_cast<const DEVMODEW*>(mode.data())));
        changed_ = false;
        if (!device_) {
            throw PrinterError(machine::PrinterNotReachableText);
        }
    }
    return device_.Get();
}

std::string WinPrinter::DeviceName() {
    return Entry().DeviceName;
}

std::string WinPrinter::Port() {
    return Entry().Port;
}

void WinPrinter::Change(DWORD field, short DEVMODEW::*member, std::int16_t value) {
    Settings().Set(field, member, value);
    changed_ = true; // a page that has begun stays as it is
}

std::int16_t WinPrinter::Orientation() {
    return Settings().Mode().dmOrientation;
}

void WinPrinter::SetOrientation(std::int16_t orientation) {
    if (orientation == Orientation()) {
        return;
    }
    if (orientation == DMORIENT_PORTRAIT || orientation == DMORIENT_LANDSCAPE) {
        Change(DM_ORIENTATION, &DEVMODEW::dmOrientation, orientation);
    }
    if (Orientation() != orientation) {
        throw machine::InvalidOrientation();
    }
}

std::int16_t WinPrinter::PaperSize() {
    return Settings().Mode().dmPaperSize;
}

void WinPrinter::SetPaperSize(std::int16_t paper) {
    if (paper == PaperSize()) {
        return;
    }
    if (!Offers(Settings(), DC_PAPERS, paper)) {
        throw machine::UnknownPaper();
    }
    Change(DM_PAPERSIZE, &DEVMODEW::dmPaperSize, paper);
}

std::int16_t WinPrinter::PaperBin() {
    return Settings().Mode().dmDefaultSource;
}

void WinPrinter::SetPaperBin(std::int16_t bin) {
    if (bin == PaperBin()) {
        return;
    }
    if (!Offers(Settings(), DC_BINS, bin)) {
        throw machine::UnknownBin();
    }
    Change(DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource, bin);
}

std::int16_t WinPrinter::Copies() {
    Entry();
    std::int16_t copies = 1; // also of a printer that cannot be reached
    base::Resume([this, &copies] {
        const DEVMODEW& mode = Settings().Mode();
        copies = (mode.dmFields & DM_COPIES) != 0 ? mode.dmCopies : copies;
    });
    return copies;
}

int WinPrinter::GetDeviceCaps(int item) {
    return ::GetDeviceCaps(Device(), item);
}

Resolution WinPrinter::DotsPerInch() {
    // A driver without a resolution has none to divide by either.
    return {std::max(1, GetDeviceCaps(LOGPIXELSX)), std::max(1, GetDeviceCaps(LOGPIXELSY))};
}

double WinPrinter::TwipsAcross(int dotsItem) {
    return GetDeviceCaps(dotsItem) * TwipsPerInch / DotsPerInch().X;
}

double WinPrinter::TwipsDown(int dotsItem) {
    return GetDeviceCaps(dotsItem) * TwipsPerInch / DotsPerInch().Y;
}

double WinPrinter::Width() {
    return TwipsAcross(PHYSICALWIDTH);
}

double WinPrinter::Height() {
    return TwipsDown(PHYSICALHEIGHT);
}

double WinPrinter::ScaleLeft() {
    Device(); // a printer that cannot be reached shows itself here, to whoever opens it
    return 0;
}

double WinPrinter::ScaleWidth() {
    return TwipsAcross(HORZRES);
}

double WinPrinter::ScaleHeight() {
    return TwipsDown(VERTRES);
}

template <class Step>
void WinPrinter::Run(Step step) {
    try {
        step();
    } catch (const PrintCalledOff&) {
        document_.reset();
    } catch (const base::RuntimeError& error) {
        document_.reset();
        teller_(error.Description());
        throw;
    } catch (...) {
        document_.reset();
        throw;
    }
}

HDC WinPrinter::PageContext() {
    if (!begun_) {
        begun_ = true; // whatever comes of it, the user is asked and told once
        Run([this] {
            document_ = std::make_unique<PrintDocument>(Device(), ToWide(title_));
            document_->BeginPage();
        });
    }
    return document_ == nullptr ? nullptr : device_.Get();
}

void WinPrinter::NewPage() {
    if (PageContext() == nullptr) {
        return;
    }
    Run([this] {
        document_->EndPage();
        if (std::exchange(changed_, false)) {
            const std::vector<std::byte> mode = Settings().ForPrinting();
            document_->Change(*reinterpret_cast<const DEVMODEW*>(mode.data()));
        }
        document_->BeginPage();
    });
}

void WinPrinter::EndDocument() {
    const bool begun = std::exchange(begun_, false);
    if (!begun || document_ == nullptr) {
        return;
    }
    Run([this] {
        document_->EndPage();
        document_->End();
    });
    document_.reset();
}

void WinPrinter::DrawingFailed() {
    if (document_ == nullptr) { // only measured
        throw base::OutOfMemory();
    }
    Run([] { ThrowPrintFailure("Het document kan niet verder worden afgedrukt."); });
}

} // namespace desktop::windows
