#include "desktop/windows/PrintDocument.h"

#include "desktop/windows/PrintFailure.h"

namespace desktop::windows {

namespace {

constexpr const char* CannotStart = "De printer neemt het document niet aan.";
constexpr const char* CannotGoOn = "Het document kan niet verder worden afgedrukt.";
constexpr const char* CannotEnd = "Het is niet zeker of het document is afgedrukt. Kijk in de wachtrij van "
                                  "de printer voordat u het opnieuw "
                                  "afdrukt.";

/// Calls the system for a document. What it tells of a failure is then this call's reason, and none from
/// before.
template <class Call>
void AskPrinter(const char* failure, Call call) {
    ::SetLastError(ERROR_SUCCESS);
    if (!call()) {
        ThrowPrintFailure(failure);
    }
}

} // namespace

PrintDocument::PrintDocument(HDC printer, const std::wstring& title) : printer_(printer) {
    DOCINFOW info{};
    info.cbSize = sizeof info;
    info.lpszDocName = title.c_str();
    AskPrinter(CannotStart, [&] { return ::StartDocW(printer_, &info) > 0; });
}

PrintDocument::~PrintDocument() {
    if (!ended_) {
        ::AbortDoc(printer_);
    }
}

void PrintDocument::BeginPage() {
    AskPrinter(CannotGoOn, [&] { return ::StartPage(printer_) > 0; });
}

void PrintDocument::EndPage() {
    AskPrinter(CannotGoOn, [&] { return ::EndPage(printer_) > 0; });
}

void PrintDocument::Change(const DEVMODEW& settings) {
    AskPrinter(CannotGoOn, [&] { return ::ResetDCW(printer_, &settings) != nullptr; });
}

void PrintDocument::End() {
    // All of it lies with the spooler now. Whether a failure came before or after it took the document over,
    // it does not tell.
    AskPrinter(CannotEnd, [&] { return ::EndDoc(printer_) > 0; });
    ended_ = true;
}

} // namespace desktop::windows
