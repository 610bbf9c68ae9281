#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/UpDown.h"

/// One of each control, and a box ("Account") that refuses the text "fout" when it loses the focus: a message
/// comes, the box is emptied and takes the focus back.
class SampleForm : public forms::Form {
  public:
    explicit SampleForm(forms::Session& session, const std::string& name = "Sample") : Form(session, name) {
        SetCaption("Proefvenster");
        Resize(6000, 6000 + forms::TitleBarHeight);
        NameLabel.SetCaption("&Naam:");
        NameLabel.Move(120, 165, 1200, 240);
        Name.Move(1500, 120, 2400, 330);
        AccountLabel.SetCaption("Rekening:");
        AccountLabel.Move(120, 570, 1200, 240);
        Account.Move(1500, 525, 2400, 330);
        Count.Move(1500, 930, 600, 330);
        Arrows.Move(2100, 930, 255, 330);
        Matrix.SetCaption("&Matrix");
        Matrix.Move(120, 1350, 2400, 300);
        Panel.Move(0, 1700, 6000, 1000);
        First.SetCaption("&Eerste");
        First.Move(120, 0, 2400, 300);
        Second.SetCaption("&Tweede");
        Second.Move(120, 350, 2400, 300);
        Third.SetCaption("&Derde");
        Third.Move(120, 700, 2400, 300);
        List.Move(120, 2800, 2400, 900);
        Combo.Move(2700, 2800, 2400, 330);
        Bar.Move(2700, 3300, 2400, 270);
        Ok.SetCaption("&Goed");
        Ok.SetDefault(true);
        Ok.Move(120, 4000, 1440, 390);
        Close.SetCaption("&Sluiten");
        Close.SetCancel(true);
        Close.Move(1700, 4000, 1440, 390);
        Other.SetCaption("&Ander");
        Other.Move(3300, 4000, 1440, 390);
        forms::Control* const order[] = {&Name,  &Account, &Count, &Matrix, &First, &Second,
                                         &Third, &List,    &Combo, &Ok,     &Other, &Close};
        int place = 0;
        for (forms::Control* control : order) {
            control->SetTabIndex(place++);
        }
        Ok.OnClick = [this] { Note("goed"); };
        Other.OnClick = [this] { Note("ander"); };
        Close.OnClick = [this] { Unload(); };
        Matrix.OnClick = [this] { Note("matrix"); };
        First.OnClick = [this] { Note("eerste"); };
        Second.OnClick = [this] { Note("tweede"); };
        Third.OnClick = [this] { Note("derde"); };
        List.OnClick = [this] { Note("lijst " + std::to_string(List.ListIndex())); };
        Combo.OnClick = [this] { Note("keuze " + std::to_string(Combo.ListIndex())); };
        Account.OnLostFocus = [this] {
            Note("rekening verlaten");
            if (Account.Text() == "fout") {
                Desktop().MsgBox("Niet juist.", forms::MessageIcon::Information, "Proef");
                Account.SetText("");
                Account.SetFocus();
            }
        };
        Account.OnGotFocus = [this] { Note("rekening"); };
        Count.SetMaxLength(4);
        Count.OnKeyPress = [](std::int16_t& key) {
            if (key != forms::key::Backspace && (key < '0' || key > '9')) {
                key = 0;
            }
        };
        Ticker.OnTimer = [this] {
            Note("tik");
            Ticker.SetEnabled(false);
        };
    }

    forms::Label NameLabel{*this, "NameLabel"};
    forms::TextBox Name{*this, "Name"};
    forms::Label AccountLabel{*this, "AccountLabel"};
    forms::TextBox Account{*this, "Account"};
    forms::TextBox Count{*this, "Count"};
    forms::UpDown Arrows{*this, "Arrows", Count, 1, 99};
    forms::CheckBox Matrix{*this, "Matrix"};
    forms::PictureBox Panel{*this, "Panel"};
    forms::OptionButton First{*this, "First", forms::Control::NoIndex, &Panel};
    forms::OptionButton Second{*this, "Second", forms::Control::NoIndex, &Panel};
    forms::OptionButton Third{*this, "Third", forms::Control::NoIndex, &Panel};
    forms::ListBox List{*this, "List"};
    forms::ComboBox Combo{*this, "Combo"};
    forms::ProgressBar Bar{*this, "Bar"};
    forms::CommandButton Ok{*this, "Ok"};
    forms::CommandButton Other{*this, "Other"};
    forms::CommandButton Close{*this, "Close"};
    forms::Timer Ticker{*this, "Ticker", 1};

    std::vector<std::string> Log;
    void Note(const std::string& what) { Log.push_back(what); }

    bool Refuses = false;
    /// What a key handler of the form has seen; it keeps `Keeps` for itself.
    std::vector<int> Keys;
    int Keeps = 0;

  protected:
    void OnLoad() override {
        for (const char* entry : {"een", "twee", "drie"}) {
            List.AddItem(entry);
            Combo.AddItem(entry);
        }
    }
    bool OnQueryUnload() override { return !Refuses; }
    void OnKeyDown(int& key) override {
        Keys.push_back(key);
        if (key == Keeps) {
            key = 0;
        }
    }
};
