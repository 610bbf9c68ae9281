#include <algorithm>
#include <string>

#include "CommandLine.h"
#include "Commands.h"
#include "ScriptError.h"
#include "Target.h"
#include "World.h"
#include "base/Text.h"
#include "forms/ChoiceControl.h"
#include "forms/MenuBar.h"
#include "forms/ScrollBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/Toolbar.h"
#include "forms/cmdButtonXP.h"

namespace scenario {

namespace {

/// What a real user could not do is recorded, and has no other effect.
void Ignored(const World& world, const char* command, const std::string& target) {
    world.record.Write(Json{{"event", "ignored"}, {"command", command}, {"target", target}});
}

template <class Kind>
Kind& As(const Target& target, const char* what) {
    auto* control = dynamic_cast<Kind*>(target.Control);
    if (control == nullptr) {
        throw ScriptError(std::string("no ") + what + ": " + FullName(*target.Control));
    }
    return *control;
}

forms::TextBox& BoxAt(const Target& target) {
    return As<forms::TextBox>(target, "text box");
}

/// Reads a control's path and lets `act` act on it. What `act` answers false to, or a form that takes no
/// input, is ignored.
template <class Act>
void OnControl(World& world, CommandLine& line, const char* command, const Act& act) {
    const std::string path = line.Word("control");
    const Target target = TargetOf(world, path);
    if (!act(target, world.stage->Reaches(*target.Form))) {
        Ignored(world, command, path);
    }
}

/// The same for a form.
template <class Act>
void OnForm(World& world, CommandLine& line, const char* command, const Act& act) {
    const std::string name = line.Word("form");
    forms::Form& form = world.FormNamed(name);
    if (!act(form, world.stage->Reaches(form))) {
        Ignored(world, command, name);
    }
}

void Click(World& world, CommandLine& line) {
    OnControl(world, line, "click", [&](const Target& target, bool reachable) {
        if (!reachable) {
            return false;
        }
        return dynamic_cast<forms::Toolbar*>(target.Control) != nullptr
                   ? world.stage->ClickTool(*target.Control, target.Element)
                   : world.stage->Click(*target.Control);
    });
}

void Pick(World& world, CommandLine& line) {
    OnControl(world, line, "pick", [&](const Target& target, bool reachable) {
        auto& list = As<forms::ChoiceControl>(target, "list or combo");
        const int entry = line.WholeNumber("entry");
        return reachable && world.stage->Pick(list, entry);
    });
}

/// Picks an entry by its text, where the list is a real machine's and no story knows its order; of entries
/// with the same text the first.
void PickText(World& world, CommandLine& line) {
    OnControl(world, line, "pick-text", [&](const Target& target, bool reachable) {
        auto& list = As<forms::ChoiceControl>(target, "list or combo");
        const std::string text = line.Word("text");
        int entry = 0;
        while (entry < list.ListCount() && list.List(entry) != text) {
            ++entry;
        }
        return reachable && world.stage->Pick(list, entry);
    });
}

void Focus(World& world, CommandLine& line) {
    OnControl(world, line, "focus", [&](const Target& target, bool reachable) {
        return reachable && world.stage->Focus(*target.Control);
    });
}

void Tab(World& world, CommandLine& line) {
    const auto name = line.NextWord();
    forms::Form& form = name ? world.FormNamed(*name) : world.FrontForm();
    if (!world.stage->Reaches(form)) {
        Ignored(world, "tab", form.Name());
        return;
    }
    world.stage->Key(form, forms::key::Tab);
}

/// The characters of a text to type, in which \b is Backspace.
std::u32string Keys(std::string_view text) {
    constexpr std::string_view backspace = "\\b";
    std::u32string keys;
    while (!text.empty()) {
        if (text.starts_with(backspace)) {
            keys += static_cast<char32_t>(forms::key::Backspace);
            text.remove_prefix(backspace.size());
            continue;
        }
        const auto [code, bytes] = base::text::DecodeFirst(text);
        keys += code;
        text.remove_prefix(bytes);
    }
    return keys;
}

void Type(World& world, CommandLine& line) {
    OnControl(world, line, "type", [&](const Target& target, bool reachable) {
        forms::TextBox& box = BoxAt(target);
        const std::u32string keys = Keys(line.Word("text"));
        return reachable && world.stage->Type(box, keys);
    });
}

void Clear(World& world, CommandLine& line) {
    BoxAt(TargetOf(world, line.Word("control"))).SetText("");
}

/// The text stands in the box whole: what a count is worth that no user can type is asked this way.
void Paste(World& world, CommandLine& line) {
    forms::TextBox& box = BoxAt(TargetOf(world, line.Word("control")));
    const int limit = box.MaxLength();
    box.SetMaxLength(0);
    box.SetText(line.Word("text"));
    box.SetMaxLength(limit);
}

void Key(World& world, CommandLine& line) {
    OnForm(world, line, "key", [&](forms::Form& form, bool reachable) {
        const int code = line.WholeNumber("key code");
        if (reachable) {
            world.stage->Key(form, code);
        }
        return reachable;
    });
}

void Wheel(World& world, CommandLine& line) {
    OnForm(world, line, "wheel", [&](forms::Form& form, bool reachable) {
        const int delta = line.WholeNumber("delta");
        if (reachable) {
            world.stage->Wheel(form, delta);
        }
        return reachable;
    });
}

void Scroll(World& world, CommandLine& line) {
    OnControl(world, line, "scroll", [&](const Target& target, bool reachable) {
        auto& bar = As<forms::ScrollBar>(target, "scroll bar");
        const int value = line.WholeNumber("value");
        return reachable && world.stage->Scroll(bar, value);
    });
}

/// The menu bar of a form that has a tool of this id; ScriptError if there is none.
forms::MenuBar& MenuWith(const forms::Form& form, const std::string& id) {
    for (forms::MenuBar* bar : form.ControlsOf<forms::MenuBar>()) {
        for (const forms::Menu& menu : bar->Menus()) {
            if (std::any_of(menu.Tools.begin(), menu.Tools.end(),
                            [&](const forms::MenuTool& tool) { return tool.Id == id; })) {
                return *bar;
            }
        }
    }
    throw ScriptError("no such menu tool on " + form.Name() + ": " + id);
}

void Menu(World& world, CommandLine& line) {
    OnForm(world, line, "menu", [&](forms::Form& form, bool reachable) {
        const std::string id = line.Word("menu tool");
        forms::MenuBar& bar = MenuWith(form, id);
        return reachable && world.stage->Choose(bar, id);
    });
}

/// The mouse, for the buttons that follow it.
void Mouse(World& world, CommandLine& line, const char* command, void (Stage::*act)(const Target&)) {
    OnControl(world, line, command, [&](const Target& target, bool reachable) {
        if (reachable) {
            (*world.stage.*act)(target);
        }
        return reachable;
    });
}

void Over(World& world, CommandLine& line) {
    Mouse(world, line, "over", &Stage::Over);
}

void Away(World& world, CommandLine& line) {
    Mouse(world, line, "away", &Stage::Away);
}

void Down(World& world, CommandLine& line) {
    Mouse(world, line, "down", &Stage::Down);
}

void Up(World& world, CommandLine& line) {
    Mouse(world, line, "up", &Stage::Up);
}

void Tick(World& world, CommandLine& line) {
    const Target target = TargetOf(world, line.Word("timer"));
    auto* button = dynamic_cast<forms::cmdButtonXP*>(target.Control);
    forms::Timer& timer = button == nullptr ? As<forms::Timer>(target, "timer") : button->Timer;
    const auto count = line.NextWord();
    for (int left = count ? WholeNumberOf(*count, "count") : 1; left > 0; --left) {
        timer.Tick();
    }
}

void Close(World& world, CommandLine& line) {
    OnForm(world, line, "close", [&](forms::Form& form, bool reachable) {
        if (reachable && !world.stage->Close(form)) {
            world.record.Write(Json{{"event", "refused"}, {"form", form.Name()}});
        }
        return reachable;
    });
}

void Open(World& world, CommandLine& line) {
    world.Open(line.Word("form"));
}

void Resize(World& world, CommandLine& line) {
    OnForm(world, line, "resize", [&](forms::Form& form, bool reachable) {
        const double width = line.Number("width");
        const double height = line.Number("height");
        const bool possible = reachable && form.Resizable();
        if (possible) {
            world.stage->Resize(form, width, height);
        }
        return possible;
    });
}

void Picture(World& world, CommandLine& line) {
    forms::Form& form = world.FormNamed(line.Word("form"));
    const std::string name = line.Word("name");
    const auto menu = line.NextWord();
    if (menu && *menu != "menu") {
        throw ScriptError("a picture is of a form, or of its menu: " + *menu);
    }
    world.stage->Picture(form, name, menu.has_value());
}

void PictureNext(World& world, CommandLine& line) {
    world.stage->PictureNext(line.Word("name"));
}

void FileNext(World& world, CommandLine& line) {
    world.stage->FileNext(line.Word("file"));
}

constexpr Command Commands[] = {
    {"click", Click},
    {"pick", Pick},
    {"pick-text", PickText},
    {"focus", Focus},
    {"tab", Tab},
    {"type", Type},
    {"clear", Clear},
    {"paste", Paste},
    {"key", Key},
    {"wheel", Wheel},
    {"scroll", Scroll},
    {"menu", Menu},
    {"over", Over},
    {"away", Away},
    {"down", Down},
    {"up", Up},
    {"tick", Tick},
    {"close", Close},
    {"open", Open},
    {"resize", Resize},
    {"picture", Picture},
    {"picture-next", PictureNext},
    {"file-next", FileNext},
};

} // namespace

std::span<const Command> UserCommands() {
    return Commands;
}

} // namespace scenario
