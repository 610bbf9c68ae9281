#pragma once

#include "Stage.h"

namespace scenario {

/// A desktop without a screen, on which the user's hands are the public User... calls of forms and controls.
class MemoryStage final : public Stage {
  public:
    explicit MemoryStage(memory::MemoryPlatform& memory) : memory_(memory) {}

    machine::Platform& Services() override { return memory_.Services(); }
    void WhileModal(std::function<bool()> next) override;
    bool ErrorsPass() const override { return true; }
    void Settle() override {}

    bool Reaches(const forms::Form& form) const override;
    std::optional<Json> Shown(const Target& /*target*/, const PathPart& /*property*/) const override {
        return std::nullopt;
    }
    bool Click(forms::Control& control) override { return control.UserClick(); }
    bool ClickTool(forms::Control& toolbar, int number) override;
    bool Pick(forms::ChoiceControl& list, int entry) override { return list.UserPick(entry); }
    bool Focus(forms::Control& control) override;
    bool Scroll(forms::ScrollBar& bar, int value) override { return bar.UserScroll(value); }
    bool Choose(forms::MenuBar& menu, const std::string& id) override { return menu.UserChoose(id); }
    void Wheel(forms::Form& form, int delta) override;
    void Over(const Target& target) override;
    void Away(const Target& target) override;
    void Down(const Target& target) override;
    void Up(const Target& target) override;
    bool Type(forms::TextBox& box, const std::u32string& keys) override;
    void Key(forms::Form& form, int code) override;
    bool Close(forms::Form& form) override { return form.UserClose(); }
    void Resize(forms::Form& form, double width, double height) override { form.UserResize(width, height); }
    void Picture(forms::Form& /*form*/, const std::string& /*name*/, bool /*menu*/) override {}
    void PictureNext(const std::string& /*name*/) override {}
    void FileNext(const std::string& file) override { memory_.desktop.NextFile = file; }

  private:
    memory::MemoryPlatform& memory_;
};

inline std::unique_ptr<Stage> MakeMemoryStage(memory::MemoryPlatform& memory) {
    return std::make_unique<MemoryStage>(memory);
}

} // namespace scenario
