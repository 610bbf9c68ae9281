#pragma once

#include <string>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// One document on its way to the spooler. Its calls throw as ThrowPrintFailure does. A document that has not
/// been ended when its object goes is taken back: nothing of it is printed.
class PrintDocument {
  public:
    /// Begins the document. The title names it in the queue.
    PrintDocument(HDC printer, const std::wstring& title);
    ~PrintDocument();
    PrintDocument(const PrintDocument&) = delete;
    PrintDocument& operator=(const PrintDocument&) = delete;

    void BeginPage();
    void EndPage();

    /// Takes new settings for the pages that follow. Between two pages only.
    void Change(const DEVMODEW& settings);

    /// Gives the document to the spooler.
    void End();

  private:
    HDC printer_;
    bool ended_ = false;
};

} // namespace desktop::windows
