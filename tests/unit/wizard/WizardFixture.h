#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/frmMain.h"

namespace wizard {

inline constexpr const char* SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";
inline constexpr const char* WrongAccount = "Het ingegeven banknummer is niet correct.";
inline constexpr const char* Title = "Drukkeuring acceptgiro's";

/// The wizard on the memory platform, with a user at its keys and mouse.
class WizardTest : public testing::Test {
  protected:
    WizardTest() {
        memory.registry.CreateKey(SettingsPath);
        memory.clock.Set(
            {.Year = 2026, .Month = 3, .Day = 14, .Hour = 12, .Minute = 0, .Second = 0, .Millisecond = 0});
    }

    void Set(const std::string& name, const std::string& value) {
        memory.registry.SetText(SettingsPath, name, value);
    }
    std::string Stored(const std::string& name) {
        return memory.registry.Text(SettingsPath, name).value_or("(missing)");
    }

    void InstallPrinter() {
        memory::PrintQueue queue;
        queue.Name = "Laser";
        memory.InstallPrinter(queue);
    }

    /// Starts the program: the wizard stands on its first page.
    frmMain& Start() {
        form = std::make_unique<frmMain>(session, memory.Services(), state);
        form->Show();
        return *form;
    }

    /// The user clicks into a box and types over what it holds.
    void Type(int box, const std::string& text) {
        forms::TextBox& target = form->UserText(box);
        form->MoveFocus(target);
        target.SetText("");
        for (const char c : text) {
            target.TypeKey(static_cast<unsigned char>(c));
        }
    }

    void Tab() {
        memory.desktop.PressKey(forms::key::Tab);
        form->UserKey(forms::key::Tab);
        memory.desktop.ReleaseKey(forms::key::Tab);
    }

    void GoToPrinting(int size = 2) {
        form->Verder.UserClick();
        form->optProcedure(0).UserClick();
        form->Verder.UserClick();
        form->optTestpartij(size).UserClick();
        form->Verder.UserClick();
    }

    std::vector<std::string> MessageTexts() const {
        std::vector<std::string> texts;
        for (const memory::ShownMessage& message : memory.desktop.Messages()) {
            texts.push_back(message.Text);
        }
        return texts;
    }

    /// The one message box that there was, with the program's title.
    static std::vector<memory::ShownMessage> Information(const std::string& text) {
        return {{text, forms::MessageIcon::Information, Title}};
    }

    int VisiblePage() const {
        int visible = -1;
        for (const auto& [index, panel] : form->WizardPanel) {
            if (panel->Visible()) {
                EXPECT_EQ(visible, -1) << "one page at a time";
                visible = index;
            }
        }
        return visible;
    }

    memory::MemoryPlatform memory;
    forms::Session session{memory.desktop};
    state::AppState state;
    std::unique_ptr<frmMain> form;
};

} // namespace wizard
