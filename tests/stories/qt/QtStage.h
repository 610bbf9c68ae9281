#pragma once

#include "Stage.h"
#include "TwinDesktop.h"

namespace scenario {

/// The real windows of the Linux desktop, on which the user's hands are events of the mouse and the keyboard.
/// Needs the application object of the toolkit.
class QtStage final : public Stage {
  public:
    explicit QtStage(memory::MemoryPlatform& memory);

    machine::Platform& Services() override { return services_; }
    void WhileModal(std::function<bool()> next) override { desktop_.Next = std::move(next); }
    bool ErrorsPass() const override { return false; }

    bool Reaches(const forms::Form& form) const override;
    std::optional<Json> Shown(const Target& target, const PathPart& property) const override;
    bool Click(forms::Control& control) override;
    bool ClickTool(forms::Control& toolbar, int number) override;
    bool Pick(forms::ChoiceControl& list, int entry) override;
    bool Focus(forms::Control& control) override;
    bool Scroll(forms::ScrollBar& bar, int value) override;
    bool Choose(forms::MenuBar& menu, const std::string& id) override;
    void Wheel(forms::Form& form, int delta) override;
    void Over(forms::Control& control) override;
    void Away(forms::Control& control) override;
    void Down(forms::Control& control) override;
    void Up(forms::Control& control) override;
    bool Type(forms::TextBox& box, const std::u32string& keys) override;
    void Key(forms::Form& form, int code) override;
    bool Close(forms::Form& form) override;
    void Resize(forms::Form& form, double width, double height) override;

  private:
    TwinDesktop desktop_;
    machine::Platform services_;
};

} // namespace scenario
