#pragma once

#include "FileAnswer.h"
#include "Pictures.h"
#include "Stage.h"
#include "TwinDesktop.h"

namespace scenario {

/// The real windows of the Linux desktop, on which the user's hands are events of the mouse and the keyboard.
/// Needs the application object of the toolkit.
class QtStage final : public Stage {
  public:
    /// `rest` is what the program works with beside the desktop. All outlive the stage. `suffix` stands
    /// behind the names of pictures.
    QtStage(memory::MemoryPlatform& memory, desktop::qt::QtDesktop& real, const machine::Platform& rest,
            const QString& suffix = {});

    /// Timers tick by themselves, for who does not compare the record. To be told before the program starts.
    void LetTimersTick() { desktop_.TimersTick = true; }

    machine::Platform& Services() override { return services_; }
    void WhileModal(std::function<bool()> next) override { desktop_.Next = std::move(next); }
    bool ErrorsPass() const override { return false; }
    void Settle() override;

    bool Reaches(const forms::Form& form) const override;
    std::optional<Json> Shown(const Target& target, const PathPart& property) const override;
    bool Click(forms::Control& control) override;
    bool ClickTool(forms::Control& toolbar, int number) override;
    bool Pick(forms::ChoiceControl& list, int entry) override;
    bool Focus(forms::Control& control) override;
    bool Scroll(forms::ScrollBar& bar, int value) override;
    bool Choose(forms::MenuBar& menu, const std::string& id) override;
    void Wheel(forms::Form& form, int delta) override;
    void Over(const Target& target) override;
    void Away(const Target& target) override;
    void Down(const Target& target) override;
    void Up(const Target& target) override;
    bool Type(forms::TextBox& box, const std::u32string& keys) override;
    void Key(forms::Form& form, int code) override;
    bool Close(forms::Form& form) override;
    void Resize(forms::Form& form, double width, double height) override;
    void Picture(forms::Form& form, const std::string& name, bool menu) override;
    void PictureNext(const std::string& name) override { pictures_.Next(name); }
    void FileNext(const std::string& file) override { file_.Next(QString::fromStdString(file)); }

  private:
    TwinDesktop desktop_;
    Pictures pictures_;
    FileAnswer file_;
    machine::Platform services_;
};

} // namespace scenario
