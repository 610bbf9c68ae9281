// The objects that a screen reader finds: each has a role, a name, and the state of the control behind it.
#include <algorithm>
#include <map>

#include <QApplication>
#include <QWidget>

#include "forms/Form.h"
#include "forms/cmdButtonXP.h"
#include "printmanager/frmPrintManager.h"
#include "unit/desktop/qt/access/AccessTest.h"

namespace {

using spoken::Object;
using testing::Contains;
using testing::ElementsAre;
using testing::MatchesRegex;
using testing::Not;

using TreeTest = AccessTest;

std::string ClassOf(const Object& object) {
    const QObject* behind = object.Interface->object();
    return behind == nullptr ? std::string() : behind->metaObject()->className();
}

bool OnlyHolds(const Object& object) {
    return object.Role == QAccessible::Client || ClassOf(object) == "QDialogButtonBox";
}

std::vector<std::string> NamesIn(QWidget* window, const char* area) {
    std::vector<std::string> names;
    const Object within = spoken::Find(window, area);
    for (int at = 0; at < within.Interface->childCount(); ++at) {
        QAccessibleInterface* child = within.Interface->child(at);
        EXPECT_EQ(within.Interface->indexOfChild(child), at);
        if (!child->state().invisible) {
            names.push_back(child->text(QAccessible::Name).toStdString());
        }
    }
    return names;
}

TEST_F(TreeTest, EveryObjectHasANameThatIsMeantForTheUser) {
    ForEachWindow([](QWidget* window, const std::string& what) {
        for (const Object& object : spoken::Tree(window)) {
            const std::string identifier = object.Control.substr(0, object.Control.find('('));
            if (OnlyHolds(object) && object.Name.empty()) {
                EXPECT_GT(object.Interface->childCount(), 0) << what << ": " << object.Control;
            } else {
                EXPECT_NE(object.Name, "") << what << ": " << object.Control << ' ' << ClassOf(object);
            }
            if (!identifier.empty()) {
                EXPECT_NE(object.Name, identifier) << what;
            }
        }
    });
}

TEST_F(TreeTest, EveryKindOfControlHasItsRole) {
    const std::map<std::string, QAccessible::Role> roles{
        {"QAction", QAccessible::MenuItem},         {"QCheckBox", QAccessible::CheckBox},
        {"QComboBox", QAccessible::ComboBox},       {"QLineEdit", QAccessible::EditableText},
        {"QListWidget", QAccessible::List},         {"QMenuBar", QAccessible::MenuBar},
        {"QMessageBox", QAccessible::AlertMessage}, {"QProgressBar", QAccessible::ProgressBar},
        {"QPushButton", QAccessible::Button},       {"QRadioButton", QAccessible::RadioButton},
        {"QScrollBar", QAccessible::ScrollBar},     {"QStatusBar", QAccessible::StatusBar},
        {"QToolButton", QAccessible::Button},
    };
    std::map<std::string, int> met;
    ForEachWindow([&](QWidget* window, const std::string& what) {
        for (const Object& object : spoken::Tree(window)) {
            if (const auto row = roles.find(ClassOf(object)); row != roles.end()) {
                ++met[row->first];
                EXPECT_EQ(object.Role, row->second) << what << ": " << object.Control;
            }
        }
    });
    EXPECT_EQ(met.size(), roles.size());
}

TEST_F(TreeTest, WidgetsOfTheProgramsOwnMakingHaveTheirRoles) {
    struct Row {
        const char* window;
        const char* control;
        QAccessible::Role role;
        const char* name;
    };
    const Row rows[] = {
        {"page 0", Main, QAccessible::Window, "Ondor Drukkeuring 3.0"},
        {"page 0", "WizardPanel(0)", QAccessible::Grouping, "Incassant en instellingen"},
        {"page 1", "WizardPanel(1)", QAccessible::Grouping, "Procedure"},
        {"page 2", "WizardPanel(2)", QAccessible::Grouping, "Omvang van de testpartij"},
        {"page 3", "WizardPanel(3)", QAccessible::Grouping, "Afdrukken"},
        {"page 3", "UpDown", QAccessible::Grouping, "Aantal af te drukken IBAN-acceptgiroformulieren"},
        {"page 3", "UpDown.Up", QAccessible::Button, "Omhoog"},
        {"manager", Manager, QAccessible::Dialog, "Afdrukbeheer"},
        {"manager", "pictMyOrientation", QAccessible::Graphic, "Papier oriëntatie"},
        {"details", "pictDetails", QAccessible::Grouping, "Printerdetails"},
        {"sort", "pictFakeForm", QAccessible::Grouping, "De gegevens worden gesorteerd"},
        {"preview", Preview, QAccessible::Dialog, "Afdrukvoorbeeld"},
        {"preview", "SSActiveToolBars", QAccessible::MenuBar, "Menubalk"},
        {"preview", "Toolbar", QAccessible::ToolBar, "Werkbalk"},
        {"preview", "StatusBar", QAccessible::StatusBar, "Statusbalk"},
        {"preview", "pictCurrentPage", QAccessible::Graphic, "Pagina"},
        {"preview", "cmdUp", QAccessible::Button, "Vorige pagina"},
        {"preview", "cmdDown", QAccessible::Button, "Volgende pagina"},
        {"setup", Setup, QAccessible::Dialog, "Printer initialisatie"},
        {"message", "qt_msgboxex_icon_label", QAccessible::Graphic, "Informatie"},
    };
    std::size_t met = 0;
    ForEachWindow([&](QWidget* window, const std::string& what) {
        for (const Row& row : rows) {
            if (row.window == what) {
                const Object object = spoken::Find(window, row.control);
                EXPECT_EQ(object.Role, row.role) << what << ": " << row.control;
                EXPECT_EQ(object.Name, row.name) << what;
                ++met;
            }
        }
    });
    EXPECT_GE(met, std::size(rows));
}

TEST_F(TreeTest, WhatOnlyDecoratesIsLeftOut) {
    ForEachWindow([](QWidget* window, const std::string& what) {
        for (const Object& object : spoken::Tree(window)) {
            EXPECT_THAT(object.Control, Not(MatchesRegex("line.*|Line.*|lForm.*|ToolbarLine.*|pictLogo|"
                                                         "pictPrinter|Picture|Picture3|pictShadow|pictEdge|"
                                                         "pictMoveToolbar")))
                << what;
        }
    });
}

// A list has no such tie in the toolkit, and its name alone.
TEST_F(TreeTest, LabelsAreTiedToTheirFields) {
    struct Row {
        const char* window;
        const char* control;
        const char* label;
    };
    const Row rows[] = {
        {"page 0", "UserText(70)", "Incassant:"},
        {"page 0", "UserText(71)", "Adres:"},
        {"page 0", "UserText(72)", "Postcode:"},
        {"page 0", "UserText(73)", "Woonplaats:"},
        {"page 0", "UserText(74)", "IBAN:"},
        {"page 3", "UserText(0)", "Aantal af te drukken IBAN-acceptgiroformulieren:"},
        {"manager", "UserText(0)", "Aantal copieën afdrukken: "},
        {"manager", "cboPrinterSelect(0)", "Printer:"},
        {"manager", "ProgressBar", "Progressie:"},
        {"details", "cboPrinterSelect(1)", "Papierformaat:"},
        {"details", "cboPrinterSelect(2)", "Papierlade:"},
        {"details", "cboPrinterSelect(3)", "Papier oriëntatie"},
        {"sort", "ProgressBarSort", "De gegevens worden gesorteerd..."},
        {"setup", "UserText(0)", "Nieuwe initialisatietijd:"},
        {"setup", "UserText(1)", "Huidige initialisatietijd:"},
    };
    ForEachWindow([&](QWidget* window, const std::string& what) {
        for (const Row& row : rows) {
            if (row.window == what) {
                EXPECT_THAT(spoken::Labels(spoken::Find(window, row.control)), ElementsAre(row.label))
                    << what;
            }
        }
    });
}

TEST_F(TreeTest, TheStateIsThatOfTheControl) {
    const auto compare = [this](QWidget* window, const std::string& what) {
        for (const forms::Form* form : program.session.OpenForms()) {
            if (QString::fromStdString(form->Name()) != window->objectName()) {
                continue;
            }
            for (const Object& object : spoken::Tree(window)) {
                const auto control = std::find_if(
                    form->Controls().begin(), form->Controls().end(), [&](const forms::Control* each) {
                        const std::string index = each->Index() == forms::Control::NoIndex
                                                      ? ""
                                                      : "(" + std::to_string(each->Index()) + ")";
                        return each->Name() != "Label" && each->Name() + index == object.Control;
                    });
                if (control == form->Controls().end() ||
                    dynamic_cast<forms::cmdButtonXP*>(*control) != nullptr) {
                    continue;
                }
                EXPECT_EQ(bool(object.State().disabled), !(*control)->IsUsable())
                    << what << ": " << object.Control;
                EXPECT_TRUE((*control)->IsShown()) << what << ": " << object.Control;
                if ((*control)->TakesFocus()) {
                    EXPECT_TRUE(object.State().focusable) << what << ": " << object.Control;
                    EXPECT_EQ(bool(object.State().focused), form->ActiveControl() == *control)
                        << what << ": " << object.Control;
                }
            }
        }
    };
    ForEachWindow(compare);
}

TEST_F(TreeTest, MarksAndLocksAreTold) {
    Start();
    GoTo(1);
    EXPECT_FALSE(spoken::Find(window::Of(Main), "optProcedure(0)").State().checked);
    program.form.optProcedure(0).UserClick();
    EXPECT_TRUE(spoken::Find(window::Of(Main), "optProcedure(0)").State().checked);
    EXPECT_TRUE(spoken::Find(window::Of(Main), "optProcedure(1)").State().checkable);
    EXPECT_FALSE(spoken::Find(window::Of(Main), "optProcedure(1)").State().checked);
}

TEST_F(TreeTest, TheFirstPageIsReadFromTheTop) {
    Start();
    EXPECT_THAT(NamesIn(window::Of(Main), Main),
                ElementsAre("", "Incassant en instellingen", "< Terug", "Volgende >", "Sluiten"));
    const std::vector<std::string> names = NamesIn(window::Of(Main), "WizardPanel(0)");
    const std::vector<std::string> fields{"Incassant:",
                                          "Incassant",
                                          "Adres:",
                                          "Adres",
                                          "Postcode:",
                                          "Postcode",
                                          "Woonplaats:",
                                          "Woonplaats",
                                          "IBAN:",
                                          "IBAN",
                                          "Controleer uw IBAN nummer voordat u verder gaat.",
                                          "Let op:"};
    EXPECT_NE(std::search(names.begin(), names.end(), fields.begin(), fields.end()), names.end())
        << testing::PrintToString(names);
    EXPECT_EQ(names.back(), "om verder te gaan");
}

TEST_F(TreeTest, TheManagerIsReadFromTheTop) {
    Start();
    GoTo(3);
    OpenManager([] {
        EXPECT_THAT(NamesIn(window::Of(Manager), Manager),
                    ElementsAre("Afdrukken:", "Afdrukken", "Afdrukken", "Voorbeeld", "Instellen...",
                                "Aantal copieën afdrukken: ", "Aantal copieën afdrukken",
                                "Aantal copieën afdrukken", "Papier oriëntatie", "Sluiten",
                                "Printer:", "Proefprinter", "Deze printer is een matrix printer.",
                                "Progressie:", "Progressie", "Details >>"));
    });
}

TEST_F(TreeTest, AScreenReaderCanPressWhatTheMouseCan) {
    const auto press = [](const char* form, const char* control) {
        const Object object = spoken::Find(window::Of(form), control);
        EXPECT_THAT(object.Interface->actionInterface()->actionNames(),
                    Contains(QAccessibleActionInterface::pressAction()))
            << control;
        object.Interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        window::Settle();
    };
    Start();
    press(Main, "Verder");
    EXPECT_TRUE(window::WaitFor([this] { return program.form.Page == 1; }));
    press(Main, "optProcedure(0)");
    EXPECT_TRUE(program.form.optProcedure(0).Value());
    GoTo(3);
    OpenManager([&] {
        OpenPreview([&] {
            press(Preview, "cmdDown");
            EXPECT_EQ(spoken::Find(window::Of(Preview), "StatusBar(1)").Name, "Pagina: 2");
            press(Preview, "cmdUp");
            EXPECT_EQ(spoken::Find(window::Of(Preview), "StatusBar(1)").Name, "Pagina: 1");
            press(Preview, "cmdUp"); // disabled now
            EXPECT_EQ(spoken::Find(window::Of(Preview), "StatusBar(1)").Name, "Pagina: 1");
        });
    });
}

TEST_F(TreeTest, AnAmpersandOfALabelThatNamesAFieldIsShown) {
    Start();
    for (forms::Label* label : program.form.ControlsOf<forms::Label>()) {
        if (label->Caption() == "Adres:") {
            label->SetUseMnemonic(false);
            label->SetCaption("Straat & huisnummer:");
            EXPECT_THAT(spoken::Labels(spoken::Find(window::Of(Main), "UserText(71)")),
                        ElementsAre("Straat & huisnummer:"));
        }
    }
}

} // namespace
