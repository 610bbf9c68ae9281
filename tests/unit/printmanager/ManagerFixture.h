#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Trace.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/PrintCaller.h"
#include "printmanager/frmPrintManager.h"

namespace printmanager {

inline constexpr const char* SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";
inline constexpr const char* Title = "Drukkeuring acceptgiro's";

/// One call back, with what the program's state held at that moment.
struct Call {
    std::string Form;
    int Document = 0;
    int Copies = 0;
    bool Preview = false;
    int Orientation = 0;
    int LeftMargin = 0;
    bool Busy = false;
    bool IsPrintPreview = false;
    std::string DocumentTitle;
};

/// A form that has documents to print.
class Caller : public forms::Form, public PrintCaller {
  public:
    using Form::Form;

    std::function<void(std::int16_t, std::int16_t, bool)> OnAfdrukken;
    std::function<precheck::Findings(const Choice&)> OnNakijken;

    void Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) override {
        OnAfdrukken(iMethod, num_copies, blnPrintPreview);
    }
    precheck::Findings Nakijken(const Choice& choice) override {
        return OnNakijken ? OnNakijken(choice) : precheck::Findings{};
    }
};

/// The print manager on the memory platform, with two printers and a caller of two documents.
class ManagerTest : public testing::Test {
  protected:
    ManagerTest() {
        memory.recorder.Sink = [this](const memory::Event& event) { events.push_back(event); };
        memory.registry.CreateKey(SettingsPath);
        state.SettingsKey = SettingsPath;
        state.MessageTitle = Title;
        state.PrinterInit = 100;
        state.PrinterOrientation = 1;
        state.LeftMargin = 100;
        state.CallerFormName = "frmCaller";
        state.DocumentTitle[1] = "Acceptgiroformulieren";
        state.DocumentTitle[2] = "Namenlijst";
    }

    void Set(const std::string& name, const std::string& value) {
        memory.registry.SetText(SettingsPath, name, value);
    }
    std::string Stored(const std::string& name) {
        return memory.registry.Text(SettingsPath, name).value_or("(missing)");
    }

    memory::PrintQueue& Install(const std::string& name) {
        memory::PrintQueue queue;
        queue.Name = name;
        queue.Port = name + ":";
        return memory.InstallPrinter(queue);
    }
    void InstallTwo() {
        Install("Laser");
        Install("Inkt");
    }

    /// A loaded form that is called back under this name.
    Caller& AddCaller(const std::string& name) {
        auto caller = std::make_unique<Caller>(session, name);
        caller->OnAfdrukken = [this, name](std::int16_t document, std::int16_t copies, bool preview) {
            calls.push_back({name, document, copies, preview, state.PrinterOrientation, state.LeftMargin,
                             manager->blnBusy, manager->IsPrintPreview(), memory.printer.DocumentTitle()});
            if (OnCall) {
                OnCall(preview);
            }
        };
        caller->Load();
        callers.push_back(std::move(caller));
        return *callers.back();
    }

    /// The caller opens the manager.
    frmPrintManager& Open() {
        manager = std::make_unique<frmPrintManager>(session, memory.Services(), state);
        manager->Show();
        events.clear();
        return *manager;
    }

    /// Opens the manager and picks a document; the printer's lists are loaded unless a stored printer says
    /// otherwise.
    frmPrintManager& OpenAndPick(int line = 0) {
        Open();
        manager->lstAfdrukken.UserPick(line);
        events.clear();
        return *manager;
    }

    /// Closes the manager and forgets its printer, so that the next opening is a first one again.
    void CloseAndForget() {
        manager->Unload();
        state.CallerFormName = "frmCaller";
        Set("CurrentPrinter", "");
    }

    std::vector<std::string> Trace() { return Traced(events); }
    std::vector<std::string> TraceOf(const std::function<void()>& action) {
        memory.desktop.TraceYields = true;
        events.clear();
        action();
        memory.desktop.TraceYields = false;
        return Traced(events);
    }
    std::vector<std::string> TraceOf(const std::function<void()>& action, const std::string& kind) {
        TraceOf(action);
        std::erase_if(events, [&](const memory::Event& event) { return event.Kind != kind; });
        return Traced(events);
    }

    std::vector<std::string> Messages() const {
        std::vector<std::string> texts;
        for (const memory::ShownMessage& message : memory.desktop.Messages()) {
            texts.push_back(message.Text);
        }
        return texts;
    }

    static std::vector<std::string> Entries(const forms::ChoiceControl& control) {
        std::vector<std::string> entries;
        entries.reserve(static_cast<std::size_t>(control.ListCount()));
        for (int i = 0; i < control.ListCount(); ++i) {
            entries.push_back(control.List(i));
        }
        return entries;
    }

    std::vector<memory::Event> events;
    memory::MemoryPlatform memory;
    forms::Session session{memory.desktop};
    state::AppState state;
    std::vector<Call> calls;
    std::function<void(bool preview)> OnCall;
    std::vector<std::unique_ptr<Caller>> callers;
    std::unique_ptr<frmPrintManager> manager;
};

/// A folder of its own as current directory, for what writes a file there.
class InOwnFolder {
  public:
    InOwnFolder() : before_(std::filesystem::current_path()) {
        std::random_device random;
        do {
            folder_ = std::filesystem::temp_directory_path() / ("printmanager-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder_));
        std::filesystem::current_path(folder_);
    }
    ~InOwnFolder() {
        std::filesystem::current_path(before_);
        std::filesystem::remove_all(folder_);
    }
    InOwnFolder(const InOwnFolder&) = delete;
    InOwnFolder& operator=(const InOwnFolder&) = delete;

    const std::filesystem::path& Path() const { return folder_; }

  private:
    std::filesystem::path before_;
    std::filesystem::path folder_;
};

} // namespace printmanager
