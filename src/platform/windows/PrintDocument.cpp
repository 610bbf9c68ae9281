#include "platform/windows/PrintDocument.h"

#include "platform/windows/PrintFailure.h"

namespace platform::windows {

namespace {

constexpr const char* CannotStart = "De printer neemt het document niet aan.";
constexpr const char* CannotGoOn = "Het document kan niet verder worden afgedrukt.";

} // namespace

PrintDocument::PrintDocument(HDC printer, const std::wstring& title) : printer_(printer) {
    DOCINFOW info{};
    info.cbSize = sizeof info;
    info.lpszDocName = title.c_str();
    if (::StartDocW(printer_, &info) <= 0) {
        ThrowPrintFailure(CannotStart);
    }
}

PrintDocument::~PrintDocument() {
    if (!ended_) {
        ::AbortDoc(printer_);
    }
}

void PrintDocument::BeginPage() {
    if (::StartPage(printer_) <= 0) {
        ThrowPrintFailure(CannotGoOn);
    }
}

void PrintDocument::EndPage() {
    if (::EndPage(printer_) <= 0) {
        ThrowPrintFailure(CannotGoOn);
    }
}

void PrintDocument::Change(const DEVMODEW& settings) {
    if (::ResetDCW(printer_, &settings) == nullptr) {
        ThrowPrintFailure(CannotGoOn);
    }
}

void PrintDocument::End() {
    if (::EndDoc(printer_) <= 0) {
        ThrowPrintFailure(CannotGoOn);
    }
    ended_ = true;
}

} // namespace platform::windows
