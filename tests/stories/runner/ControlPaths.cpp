#include <optional>

#include "Paths.h"
#include "ScriptError.h"
#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/ControlVisitor.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/MenuBar.h"
#include "forms/MenuItem.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/ScrollBar.h"
#include "forms/StatusBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/Toolbar.h"
#include "forms/UpDown.h"
#include "forms/cmdButtonXP.h"

namespace scenario {

namespace {

using namespace forms;
using forms::cmdButtonXP;

template <class Kind>
struct Property {
    std::string_view Name;
    Json (*Get)(const Kind&);
};

constexpr Property<Control> CommonProperties[] = {
    {"Left", [](const Control& c) { return Number(c.Left()); }},
    {"Top", [](const Control& c) { return Number(c.Top()); }},
    {"Width", [](const Control& c) { return Number(c.Width()); }},
    {"Height", [](const Control& c) { return Number(c.Height()); }},
    {"Visible", [](const Control& c) { return Json(c.Visible()); }},
    {"Enabled", [](const Control& c) { return Json(c.Enabled()); }},
    {"ToolTipText", [](const Control& c) { return Json(c.ToolTipText()); }},
    {"TabIndex", [](const Control& c) { return Json(c.TabIndex()); }},
    {"ForeColor", [](const Control& c) { return Json(c.ForeColor()); }},
    {"BackColor", [](const Control& c) { return Json(c.BackColor()); }},
    {"FontName", [](const Control& c) { return Json(c.Font().Name); }},
    {"FontSize", [](const Control& c) { return Number(c.Font().Size); }},
    {"FontBold", [](const Control& c) { return Json(c.Font().Bold); }},
};

constexpr Property<CaptionedControl> CaptionProperties[] = {
    {"Caption", [](const CaptionedControl& c) { return Json(c.Caption()); }},
};

constexpr Property<CheckBox> CheckBoxProperties[] = {
    {"Caption", [](const CheckBox& c) { return Json(c.Caption()); }},
    {"Value", [](const CheckBox& c) { return Json(c.Value()); }},
};

constexpr Property<ChoiceControl> ChoiceProperties[] = {
    {"Text", [](const ChoiceControl& c) { return Json(c.Text()); }},
    {"ListIndex", [](const ChoiceControl& c) { return Json(c.ListIndex()); }},
    {"ListCount", [](const ChoiceControl& c) { return Json(c.ListCount()); }},
};

constexpr Property<CommandButton> CommandButtonProperties[] = {
    {"Caption", [](const CommandButton& c) { return Json(c.Caption()); }},
    {"Default", [](const CommandButton& c) { return Json(c.Default()); }},
    {"Cancel", [](const CommandButton& c) { return Json(c.Cancel()); }},
};

constexpr Property<cmdButtonXP> FlatButtonProperties[] = {
    {"ButtonDown", [](const cmdButtonXP& c) { return Json(c.ButtonDown()); }},
    {"ButtonStyle", [](const cmdButtonXP& c) { return Json(c.ButtonStyle()); }},
    {"pictNormal", [](const cmdButtonXP& c) { return Json(c.pictNormal()); }},
    {"iState", [](const cmdButtonXP& c) { return Json(c.iState()); }},
    {"blnOver", [](const cmdButtonXP& c) { return Json(c.blnOver()); }},
    {"blnMouseDown", [](const cmdButtonXP& c) { return Json(c.blnMouseDown()); }},
};

constexpr Property<LineControl> LineProperties[] = {
    {"X1", [](const LineControl& c) { return Number(c.X1()); }},
    {"Y1", [](const LineControl& c) { return Number(c.Y1()); }},
    {"X2", [](const LineControl& c) { return Number(c.X2()); }},
    {"Y2", [](const LineControl& c) { return Number(c.Y2()); }},
    {"BorderColor", [](const LineControl& c) { return Json(c.ForeColor()); }},
};

constexpr Property<OptionButton> OptionProperties[] = {
    {"Caption", [](const OptionButton& c) { return Json(c.Caption()); }},
    {"Value", [](const OptionButton& c) { return Json(c.Value()); }},
};

constexpr Property<PictureBox> PictureProperties[] = {
    {"Picture", [](const PictureBox& c) { return Json(c.Picture()); }},
    {"HasPage", [](const PictureBox& c) { return Json(c.Page() != nullptr); }},
};

constexpr Property<ProgressBar> ProgressProperties[] = {
    {"Value", [](const ProgressBar& c) { return Json(c.Value()); }},
    {"Min", [](const ProgressBar& c) { return Json(c.Min()); }},
    {"Max", [](const ProgressBar& c) { return Json(c.Max()); }},
};

constexpr Property<ScrollBar> ScrollProperties[] = {
    {"Value", [](const ScrollBar& c) { return Json(c.Value()); }},
    {"Min", [](const ScrollBar& c) { return Json(c.Min()); }},
    {"Max", [](const ScrollBar& c) { return Json(c.Max()); }},
    {"SmallChange", [](const ScrollBar& c) { return Json(c.SmallChange()); }},
    {"LargeChange", [](const ScrollBar& c) { return Json(c.LargeChange()); }},
};

constexpr Property<TextBox> TextBoxProperties[] = {
    {"Text", [](const TextBox& c) { return Json(c.Text()); }},
    {"SelStart", [](const TextBox& c) { return Json(c.SelStart()); }},
    {"SelLength", [](const TextBox& c) { return Json(c.SelLength()); }},
    {"MaxLength", [](const TextBox& c) { return Json(c.MaxLength()); }},
    {"Tag", [](const TextBox& c) { return Json(c.Tag()); }},
    {"Locked", [](const TextBox& c) { return Json(c.Locked()); }},
};

constexpr Property<Timer> TimerProperties[] = {
    {"Interval", [](const Timer& c) { return Json(c.Interval()); }},
};

constexpr Property<UpDown> UpDownProperties[] = {
    {"Min", [](const UpDown& c) { return Json(c.Min()); }},
    {"Max", [](const UpDown& c) { return Json(c.Max()); }},
};

constexpr Property<StatusPanel> PanelProperties[] = {
    {"Text", [](const StatusPanel& c) { return Json(c.Text); }},
    {"Width", [](const StatusPanel& c) { return Number(c.Width); }},
};

constexpr Property<ToolbarButton> ToolbarButtonProperties[] = {
    {"Enabled", [](const ToolbarButton& c) { return Json(c.Enabled); }},
    {"ToolTipText", [](const ToolbarButton& c) { return Json(c.ToolTipText); }},
    {"Image", [](const ToolbarButton& c) { return Json(c.Image); }},
    {"HotImage", [](const ToolbarButton& c) { return Json(c.HotImage); }},
};

template <class Kind, class Table>
std::optional<Json> Read(const Kind& object, const Table& table, const std::string& name) {
    for (const auto& property : table) {
        if (property.Name == name) {
            return property.Get(object);
        }
    }
    return std::nullopt;
}

std::optional<Json> ReadChoice(const ChoiceControl& control, const PathPart& property) {
    if (!property.HasIndex()) {
        return Read(control, ChoiceProperties, property.Name);
    }
    if (property.Index < 0 || property.Index >= control.ListCount()) {
        return std::nullopt;
    }
    if (property.Name == "List") {
        return Json(control.List(property.Index));
    }
    if (property.Name == "ItemData") {
        return Json(control.ItemData(property.Index));
    }
    return std::nullopt;
}

/// A property that a kind has beyond the common ones.
class OwnProperty final : public ControlVisitor {
  public:
    explicit OwnProperty(const PathPart& property) : property_(property) {}

    std::optional<Json> Value;

    void Visit(CheckBox& control) override { Value = Read(control, CheckBoxProperties, property_.Name); }
    void Visit(ComboBox& control) override { Value = ReadChoice(control, property_); }
    void Visit(CommandButton& control) override {
        Value = Read(control, CommandButtonProperties, property_.Name);
    }
    void Visit(Label& control) override { Value = Read(control, CaptionProperties, property_.Name); }
    void Visit(LineControl& control) override { Value = Read(control, LineProperties, property_.Name); }
    void Visit(ListBox& control) override { Value = ReadChoice(control, property_); }
    void Visit(MenuBar& /*control*/) override {}
    void Visit(MenuItem& control) override { Value = Read(control, CaptionProperties, property_.Name); }
    void Visit(OptionButton& control) override { Value = Read(control, OptionProperties, property_.Name); }
    void Visit(PictureBox& control) override { Value = Read(control, PictureProperties, property_.Name); }
    void Visit(ProgressBar& control) override { Value = Read(control, ProgressProperties, property_.Name); }
    void Visit(ScrollBar& control) override { Value = Read(control, ScrollProperties, property_.Name); }
    void Visit(StatusBar& /*control*/) override {}
    void Visit(TextBox& control) override { Value = Read(control, TextBoxProperties, property_.Name); }
    void Visit(Timer& control) override { Value = Read(control, TimerProperties, property_.Name); }
    void Visit(Toolbar& /*control*/) override {}
    void Visit(UpDown& control) override { Value = Read(control, UpDownProperties, property_.Name); }
    void Visit(cmdButtonXP& control) override { Value = Read(control, FlatButtonProperties, property_.Name); }

  private:
    const PathPart& property_;
};

std::optional<Json> ReadOwn(Control& control, const PathPart& property) {
    OwnProperty own(property);
    control.Accept(own);
    return own.Value;
}

std::optional<Json> ReadElement(const Target& target, const std::string& name) {
    if (const auto* bar = dynamic_cast<const StatusBar*>(target.Control)) {
        return target.Element < 1 || target.Element > bar->PanelCount()
                   ? std::nullopt
                   : Read(bar->Panel(target.Element), PanelProperties, name);
    }
    const auto& bar = dynamic_cast<const Toolbar&>(*target.Control);
    return target.Element < 1 || target.Element > bar.ButtonCount()
               ? std::nullopt
               : Read(bar.Button(target.Element), ToolbarButtonProperties, name);
}

} // namespace

Json PropertyOf(const Target& target, const PathPart& property) {
    std::optional<Json> value;
    if (target.Element != Control::NoIndex) {
        value = ReadElement(target, property.Name);
    } else {
        value = ReadOwn(*target.Control, property);
        if (!value) {
            value = Read(*target.Control, CommonProperties, property.Name);
        }
    }
    if (!value) {
        throw ScriptError("no such property of " + target.Form->Name() + "." + FullName(*target.Control) +
                          ": " + property.Name);
    }
    return *value;
}

} // namespace scenario
