#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "composition/PrintSurface.h"
#include "forms/modMsgHookProc.h"
#include "memory/MemoryPlatform.h"
#include "preview/PrintPreview.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "state/AppState.h"

namespace preview {

/// A preview on a machine with one printer: a sheet of 11904 by 16838 twips, of which 11424 by 16358 are
/// printable.
class PreviewTest : public testing::Test {
  protected:
    PreviewTest() {
        memory.recorder.Sink = [this](const memory::Event& event) { events.push_back(event); };
        state.ListFontName = "Tahoma";
        state.MessageTitle = "Drukkeuring acceptgiro's";
    }

    void InstallPrinter(const std::string& name = "Laser") {
        memory::PrintQueue queue;
        queue.Name = name;
        memory.InstallPrinter(queue);
    }

    void Open() { preview.OpenPreview(0); }
    void Close() { preview.OpenPreview(1); }
    frmPrintPreviewGhost& Ghost() { return *preview.Ghost(); }
    frmPrintPreview& Window() { return *preview.Window(); }
    composition::PrintSurface& Surface() { return *state.Surface; }

    /// A document of `pages` pages with the page's number on each, up to its end.
    void Compose(int pages) {
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) {
                Surface().Newpage();
            }
            Surface().PrintLine("pagina " + std::to_string(page));
        }
        Surface().EndDoc();
    }

    /// Opens a preview of so many pages, and plays what the user does in the window.
    void Show(int pages, const std::function<void()>& user) {
        Open();
        Compose(pages);
        bool played = false;
        memory.desktop.OnModal = [&](forms::Form&) {
            if (played) {
                return false;
            }
            played = true;
            user();
            return true;
        };
        preview.Show();
        memory.desktop.OnModal = nullptr;
        Close();
        EXPECT_TRUE(played);
    }

    static std::vector<std::string> TextsOn(const std::shared_ptr<const machine::PageBitmap>& page) {
        if (page == nullptr) {
            return {"no page"};
        }
        return static_cast<const memory::MemoryBitmap&>(*page).Texts();
    }
    /// What the window shows.
    std::vector<std::string> OnScreen() { return TextsOn(Window().pictCurrentPage.Page()); }

    /// Numbers of the toolbar buttons that a user can press.
    std::vector<int> Pressable() {
        std::vector<int> numbers;
        for (int number = 1; number <= Window().Toolbar.ButtonCount(); ++number) {
            const forms::ToolbarButton& button = Window().Toolbar.Button(number);
            if (button.Enabled && !button.Separator) {
                numbers.push_back(number);
            }
        }
        return numbers;
    }

    /// The kinds of the events since the last call, but for those of the spooler.
    std::vector<std::string> Kinds() {
        std::vector<std::string> kinds;
        for (const memory::Event& event : events) {
            kinds.push_back(event.Kind);
        }
        events.clear();
        return kinds;
    }

    memory::MemoryPlatform memory;
    std::vector<memory::Event> events;
    state::AppState state;
    forms::Session session{memory.desktop};
    composition::PrinterSurface printer{memory.printer};
    PrintPreview preview{session, memory.Services(), state, printer};
};

} // namespace preview
