#include <new>

#include "WizardFixture.h"

namespace wizard {
namespace {

class PrintCommandTest : public WizardTest {
  protected:
    PrintCommandTest() {
        memory.desktop.OnModal = [this](forms::Form& opened) {
            modal.push_back(opened.Name());
            if (WhileOpen) {
                WhileOpen();
            }
            return false;
        };
    }

    std::function<void()> WhileOpen;
    std::vector<std::string> modal;
};

constexpr const char* NothingToPrint = "Er valt niets af te drukken, geef eerst het aantal acceptgiro's in.";

class NoCountTest : public PrintCommandTest, public testing::WithParamInterface<const char*> {};

TEST_P(NoCountTest, IsRefused) {
    InstallPrinter();
    Start();
    GoToPrinting();
    form->UserText(0).SetText(GetParam());
    form->cmdPrinten.UserClick();
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{NothingToPrint});
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, forms::MessageIcon::Information);
    EXPECT_TRUE(modal.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, NoCountTest, testing::Values("", "0", "abc", "-1", "0.0", ",5"));

TEST_F(PrintCommandTest, RefusesMoreThan30000) {
    Start();
    GoToPrinting();
    form->UserText(0).SetMaxLength(0); // no user can type as much
    form->UserText(0).SetText("30001");
    form->cmdPrinten.UserClick();
    EXPECT_EQ(memory.desktop.Messages(), Information("U kunt maximaal 30.000 acceptgiro's afdrukken."));
    EXPECT_TRUE(modal.empty());
}

// A part of a form is more than nothing, and the run then rounds it to none.
TEST_F(PrintCommandTest, TakesAFraction) {
    InstallPrinter();
    Start();
    GoToPrinting();
    form->UserText(0).SetText("0.5");
    form->cmdPrinten.UserClick();
    EXPECT_EQ(modal, std::vector<std::string>{"frmPrintManager"});
}

TEST_F(PrintCommandTest, TakesExactly30000) {
    Start();
    GoToPrinting();
    form->UserText(0).SetMaxLength(0);
    form->UserText(0).SetText("30000");
    form->cmdPrinten.UserClick();
    EXPECT_EQ(modal, std::vector<std::string>{"frmPrintManager"});
}

TEST_F(PrintCommandTest, ARunThatBreaksOffLeavesNothingForTheNextDocument) {
    Set("AcceptgiroType", "3"); // a sheet for each form
    InstallPrinter();
    Start();
    GoToPrinting();
    std::vector<std::int64_t> pages;
    memory.recorder.Sink = [&](const memory::Event& event) {
        if (event.Kind == "text") {
            pages.push_back(std::get<std::int64_t>(event.Fields[1].Value));
        }
    };
    WhileOpen = [&] {
        printmanager::frmPrintManager& manager = *form->PrintManager();
        manager.lstAfdrukken.UserPick(0);
        memory.desktop.OnYield = [&] {
            if (!pages.empty() && pages.back() == 3) {
                memory.desktop.OnYield = nullptr;
                throw std::bad_alloc();
            }
        };
        EXPECT_THROW(manager.cmdPrint.UserClick(), std::bad_alloc);
        EXPECT_EQ(pages.back(), 3);
        pages.clear();
        manager.lstAfdrukken.UserPick(2);
        manager.cmdPrint.UserClick();
    };
    form->cmdPrinten.UserClick();
    ASSERT_FALSE(pages.empty());
    EXPECT_EQ(pages.front(), 1);
    EXPECT_EQ(pages.back(), 1);
}

TEST_F(PrintCommandTest, NamesTheDocumentsAndTheCaller) {
    InstallPrinter();
    Start();
    GoToPrinting();
    state.DocumentTitle[7] = "oud";
    WhileOpen = [&] {
        EXPECT_EQ(state.CallerFormName, "frmMain");
        EXPECT_TRUE(state.PrintManagerOpen);
        EXPECT_EQ(state.DocumentTitle[0], "");
        EXPECT_EQ(state.DocumentTitle[1], "Acceptgiroformulieren voor de drukkeuring");
        EXPECT_EQ(state.DocumentTitle[2], "Namenlijst");
        EXPECT_EQ(state.DocumentTitle[3], "Instellingen calibratie");
        EXPECT_EQ(state.DocumentTitle[7], "");
        EXPECT_EQ(form->PrintManager()->lstAfdrukken.ListCount(), 3);
    };
    form->cmdPrinten.UserClick();
    EXPECT_EQ(modal.size(), 1U);
    EXPECT_FALSE(state.PrintManagerOpen);
    EXPECT_EQ(form->PrintManager(), nullptr);
    EXPECT_EQ(form->Page, 3);
}

TEST_F(PrintCommandTest, DoesNothingWhileThePrintManagerIsOpen) {
    InstallPrinter();
    Start();
    GoToPrinting();
    WhileOpen = [&] { form->cmdPrinten.Press(); };
    form->cmdPrinten.UserClick();
    EXPECT_EQ(modal.size(), 1U);
}

// No window for the manager, or a failure of any other kind while it is open.
TEST_F(PrintCommandTest, OpensThePrintManagerAfterOneThatFailed) {
    InstallPrinter();
    Start();
    GoToPrinting();
    memory.recorder.Fail("CreatePeer");
    form->cmdPrinten.UserClick();
    EXPECT_TRUE(modal.empty());
    EXPECT_FALSE(state.PrintManagerOpen);
    WhileOpen = [] { throw std::bad_alloc(); };
    EXPECT_THROW(form->cmdPrinten.UserClick(), std::bad_alloc);
    EXPECT_FALSE(state.PrintManagerOpen);
    EXPECT_EQ(form->PrintManager(), nullptr);
    WhileOpen = nullptr;
    form->cmdPrinten.UserClick();
    EXPECT_EQ(modal.size(), 2U);
}

TEST_F(PrintCommandTest, PrintsTheBatchThroughThePrintManager) {
    Set("AcceptgiroType", "1");
    InstallPrinter();
    int ends = 0;
    int forms = 0;
    memory.recorder.Sink = [&](const memory::Event& event) {
        ends += event.Kind == "end" ? 1 : 0;
        if (event.Kind == "text") {
            for (const memory::EventField& field : event.Fields) {
                const auto* text = std::get_if<std::string>(&field.Value);
                forms += text != nullptr && *text == "DRUKKEURING " ? 1 : 0;
            }
        }
    };
    Start();
    GoToPrinting();
    form->UserText(0).SetText("4");
    WhileOpen = [&] {
        form->PrintManager()->lstAfdrukken.UserPick(0);
        form->PrintManager()->cmdPrint.UserClick();
    };
    form->cmdPrinten.UserClick();
    EXPECT_EQ(forms, 4);
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(MessageTexts().empty());
}

} // namespace
} // namespace wizard
