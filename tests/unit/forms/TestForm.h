#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Form.h"
#include "memory/MemoryPlatform.h"

/// A form whose events a test can set.
class TestForm : public forms::Form {
  public:
    explicit TestForm(forms::Session& session, std::string name = "frmTest")
        : Form(session, std::move(name)) {}

    std::function<void()> onLoad;
    std::function<void()> onActivate;
    std::function<void()> onResize;
    std::function<void(int&)> onKeyDown;
    std::function<bool()> onQueryUnload;
    std::function<void()> onUnload;
    std::string handbookSection;

    using Form::SetResizable;

  protected:
    void OnLoad() override { Call(onLoad); }
    void OnActivate() override { Call(onActivate); }
    void OnResize() override { Call(onResize); }
    void OnKeyDown(int& virtualKey) override {
        if (onKeyDown) {
            onKeyDown(virtualKey);
        }
    }
    bool OnQueryUnload() override { return !onQueryUnload || onQueryUnload(); }
    void OnUnload() override { Call(onUnload); }
    std::string HandbookSection() const override { return handbookSection; }

  private:
    static void Call(const std::function<void()>& handler) {
        if (handler) {
            handler();
        }
    }
};

/// A desktop with a session, and what happened as a list of words.
struct FormsFixture {
    std::function<void()> Log(const std::string& word) {
        return [this, word] { log.push_back(word); };
    }

    memory::MemoryPlatform memory;
    forms::Session session{memory.desktop};
    std::vector<std::string> log;
};
