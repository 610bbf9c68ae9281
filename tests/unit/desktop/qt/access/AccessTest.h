#pragma once

#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"
#include "unit/desktop/qt/access/AccessTree.h"

/// The whole program, met by somebody who listens to it and has no mouse.
class AccessTest : public testing::Test {
  protected:
    AccessTest();

    static constexpr const char* Main = "frmMain";
    static constexpr const char* Manager = "frmPrintManager";
    static constexpr const char* Setup = "frmPrintManagerSetup";
    static constexpr const char* Preview = "frmPrintPreview";

    void Start();
    /// From the first page on, forward to this one.
    void GoTo(int page);
    /// Opens the print manager from the last page, and closes it after `inside`.
    void OpenManager(const std::function<void()>& inside);
    /// Opens the preview of the first document from the manager, and leaves it after `inside`.
    static void OpenPreview(const std::function<void()>& inside);

    /// A window in one of its states, and what that is called when it fails.
    using Look = std::function<void(QWidget* window, const std::string& what)>;
    /// Goes through all windows and pages of the program.
    void ForEachWindow(const Look& look);

    Program program;
    window::MessageBoxes boxes;
};
