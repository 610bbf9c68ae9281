#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QFile>
#include <gtest/gtest.h>

#include "print/queues/RealProgram.h"
#include "unit/desktop/qt/Window.h"
#include "unit/desktop/qt/printing/PrintServer.h"

/// A user's machine: a print server with three queues, the main application's settings, and the program.
class QueuesTest : public testing::Test {
  protected:
    explicit QueuesTest(const QList<PrintQueueKind>& others = {Driverless, OutOfPaper}) : Server(others) {}

    static constexpr const char* FormsTray = "Lade 3 met formulieren";
    static constexpr const char* LegalPaper = "US Legal";

    // What the program says of a server that cannot be asked.
    static constexpr const char* Unreachable =
        "De printer kon niet worden gevonden of de initialisatie van de printer is op dit "
        "moment niet mogelijk.\r\nRegel: 6";
    static constexpr const char* NoAnswer =
        "De afdrukserver geeft geen antwoord. Het document is niet afgedrukt.";
    static constexpr const char* PerhapsPrinted =
        "De afdrukserver heeft niet bevestigd dat het document is aangekomen. Misschien wordt het toch "
        "afgedrukt.\nKijk eerst bij de printer voordat u het opnieuw afdrukt.";

    enum Document : int { TestForms, NameList, CalibrationReport };

    void SetUp() override {
        if (!Server.IsUp()) {
            GTEST_SKIP() << "no print server can be started here";
        }
        const QString folder = Server.Folder() + "/user-config/tarvik";
        QDir().mkpath(folder);
        ASSERT_TRUE(QFile::copy(STORED_SETTINGS, folder + "/settings.reg"));
        QFile::setPermissions(folder + "/settings.reg", QFile::ReadOwner | QFile::WriteOwner);
    }

    void StartProgram() {
        Program = std::make_unique<RealProgram>();
        Program->GoToTheLastPage();
    }

    /// The user's own defaults, as the file has them.
    QByteArray UserFile() const { return Server.Read(".cups/lpoptions"); }
    bool HasUserFile() const { return QFile::exists(Server.Folder() + "/.cups/lpoptions"); }
    void WriteUserFile(const QByteArray& text) const {
        QDir().mkpath(Server.Folder() + "/.cups");
        Server.Write(".cups/lpoptions", text);
    }

    const std::vector<std::string>& Messages() { return Program->Messages(); }

    std::vector<std::string> Entries(int combo) {
        std::vector<std::string> texts;
        const forms::ComboBox& box = Program->Manager().cboPrinterSelect(combo);
        texts.reserve(static_cast<std::size_t>(box.ListCount()));
        for (int i = 0; i < box.ListCount(); ++i) {
            texts.push_back(box.List(i));
        }
        return texts;
    }

    std::string Label(int index) { return Program->Manager().lblPrinterSelect(index).Caption(); }

    void OpenFirst(const std::function<void()>& inside) {
        StartProgram();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(2, FormsTray);
            inside();
        });
    }

    /// Opens the manager again, prints, and expects the document as job `number`.
    void ExpectUsable(int number) {
        const std::size_t before = Messages().size();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(0, "Kantoor");
            Program->Pick(2, FormsTray);
            Program->Print(NameList);
        });
        const std::optional<ArrivedJob> job = Server.Job(number);
        ASSERT_TRUE(job);
        EXPECT_EQ(job->Options["InputSlot"], "Tray3");
        EXPECT_EQ(Messages().size(), before);
    }

    PrintServer Server;
    std::unique_ptr<RealProgram> Program;
};
