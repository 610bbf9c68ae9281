#include "print/queues/RealProgram.h"

#include <iomanip>
#include <memory>
#include <stdexcept>
#include <utility>

#include <gtest/gtest.h>

#include "PlayLine.h"
#include "QtStage.h"
#include "unit/desktop/qt/Window.h"

namespace {

constexpr const char* ManagerForm = "frmPrintManager";

constexpr const char* WayToTheLastPage[] = {
    "start",
    "click frmMain.Verder",
    "click frmMain.optProcedure(0)",
    "click frmMain.Verder",
    "click frmMain.optTestpartij(0)",
    "click frmMain.Verder",
    "expect frmMain.Page 3",
    "paste frmMain.UserText(0) 7", // two sheets and a third that is not full
};

/// The program's own timers tick here as they do for its users.
scenario::StageMaker StageOn(RealProgram& program) {
    return [&program](memory::MemoryPlatform& memory) {
        auto stage = std::make_unique<scenario::QtStage>(memory, program.Desktop, program.Services);
        stage->LetTimersTick();
        return stage;
    };
}

} // namespace

RealProgram::RealProgram() : world_(writer_, StageOn(*this)) {
    world_.stage->WhileModal([this] { return GoInside(); });
}

void RealProgram::Play(const std::string& line) {
    // No exception may cross the toolkit, which stands between a modal form and its caller.
    try {
        scenario::PlayLine(world_, line);
    } catch (const std::runtime_error& error) {
        ADD_FAILURE() << line << ": " << error.what();
    }
    ReadRecord();
}

void RealProgram::Play(const std::string& line, const std::function<void()>& inside) {
    inside_ = &inside;
    Play(line);
    EXPECT_EQ(inside_, nullptr) << "nothing opens: " << line;
    inside_ = nullptr;
}

/// False: the form that is open is to be closed.
bool RealProgram::GoInside() {
    const std::function<void()>* inside = std::exchange(inside_, nullptr);
    if (inside == nullptr) {
        ADD_FAILURE() << "a form is left open: " << world_.FrontForm().Name();
        return false;
    }
    (*inside)();
    return true;
}

void RealProgram::ReadRecord() {
    std::string line;
    while (std::getline(record_, line)) {
        const scenario::Json record = scenario::Json::parse(line);
        const std::string event = record.value("event", "");
        if (event == "message") {
            messages_.push_back(record["text"]);
        } else if (event == "error") {
            messages_.push_back(record["description"]);
        } else if (event == "ignored" || event == "refused") {
            ADD_FAILURE() << line;
        }
    }
    record_.clear(); // of having been read to its end
}

const std::vector<std::string>& RealProgram::Messages() {
    ReadRecord();
    return messages_;
}

void RealProgram::Tell(const std::string& text) {
    world_.stage->Services().Desktop.MsgBox(text, forms::MessageIcon::Critical, "Afdrukken");
}

printmanager::frmPrintManager& RealProgram::Manager() const {
    return dynamic_cast<printmanager::frmPrintManager&>(world_.FormNamed(ManagerForm));
}

void RealProgram::GoToTheLastPage() {
    for (const char* line : WayToTheLastPage) {
        Play(line);
    }
}

void RealProgram::OpenManager(const std::function<void()>& inside) {
    Play("click frmMain.cmdPrinten", inside);
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
    EXPECT_FALSE(world_.state.PrintManagerOpen);
}

void RealProgram::OpenDetails() {
    Play("click frmPrintManager.cmdDetails");
    Play("expect frmPrintManager.blnDetailsOpen true");
}

void RealProgram::Pick(int combo, const std::string& text) {
    std::ostringstream line;
    line << "pick-text frmPrintManager.cboPrinterSelect(" << combo << ") " << std::quoted(text);
    Play(line.str());
}

void RealProgram::PickDocument(int row) {
    Play("pick frmPrintManager.lstAfdrukken " + std::to_string(row));
}

void RealProgram::OpenPreview(const std::function<void()>& inside) {
    Play("click frmPrintManager.cmdPrintVoorbeeld", inside);
}

void RealProgram::CloseManager() {
    Play("expect frmPrintManager.blnBusy false");
    Play("click frmPrintManager.cmdAnnuleren");
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
}

void RealProgram::Print(int row) {
    PickDocument(row);
    Play("click frmPrintManager.cmdPrint");
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
}
