// A print server that takes requests and does not answer.
#include "qt/queues/QueuesFixture.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// A server that takes every request and answers after ten seconds.
class Silence {
  public:
    explicit Silence(PrintServer& server) : server_(server) {
        server_.Freeze();
        thread_ = std::thread([this] {
            std::unique_lock lock(mutex_);
            over_ = !ended_.wait_for(lock, std::chrono::seconds(10), [this] { return isEnded_; });
            server_.Thaw();
        });
    }
    ~Silence() { End(); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

    /// Has the server answered, so that someone may have waited for it?
    bool HasAnswered() const { return over_; }

    void End() {
        {
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        ended_.notify_all();
        if (thread_.joinable()) {
            thread_.join();
        }
    }

  private:
    PrintServer& server_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isEnded_ = false;
    std::atomic<bool> over_ = false;
    std::thread thread_;
};

class SilentServerTest : public QueuesTest {
  protected:
    /// The server is asked again a while after it answered again.
    void WaitUntilAsked() {
        EXPECT_TRUE(window::WaitFor([&] { return Program->Printers.Find("Kantoor")->Reachable(); }));
    }
};

TEST_F(SilentServerTest, AtTheStart) {
    {
        const Silence silence(Server);
        StartProgram();
        Program->OpenManager([&] {
            EXPECT_THAT(Entries(0), ElementsAre("PDF-bestand"));
            Program->CloseManager();
        });
        EXPECT_FALSE(silence.HasAnswered());
    }
    EXPECT_TRUE(window::WaitFor([&] {
        Program->Printers.Refresh();
        return Program->Printers.Count() == 4;
    }));
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenTheManagerOpens) {
    OpenFirst([&] { Program->CloseManager(); });
    {
        const Silence silence(Server);
        Program->OpenManager([&] {
            EXPECT_THAT(Entries(0), Contains("Kantoor"));
            Program->Click("cmdDetails");
            EXPECT_TRUE(Program->Manager().blnNoConnection);
            EXPECT_FALSE(Program->Manager().blnDetailsOpen);
            Program->CloseManager();
        });
        EXPECT_FALSE(silence.HasAnswered());
    }
    WaitUntilAsked();
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenAnotherPrinterIsChosen) {
    OpenFirst([&] {
        {
            const Silence silence(Server);
            Program->Pick(0, "Driverloos");
            EXPECT_FALSE(silence.HasAnswered());
        }
        EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        EXPECT_FALSE(Program->Manager().blnBusy);
        WaitUntilAsked();
        Program->Click("cmdDetails");
        EXPECT_FALSE(Program->Manager().blnNoConnection);
        EXPECT_EQ(Label(6), "Driverloos");
        Program->CloseManager();
    });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SilentServerTest, BetweenLoadAndPrint) {
    OpenFirst([&] {
        const Silence silence(Server);
        Program->Print(NameList);
        EXPECT_FALSE(silence.HasAnswered());
    });
    EXPECT_THAT(Messages(), ElementsAre(Unreachable, NoAnswer));
    WaitUntilAsked();
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenTheDocumentIsSent) {
    std::unique_ptr<Silence> silence;
    OpenFirst([&] {
        Program->Printer.OnFirstText = [&] { silence = std::make_unique<Silence>(Server); };
        Program->Print(NameList);
        EXPECT_FALSE(silence->HasAnswered());
    });
    silence.reset();
    EXPECT_THAT(Messages(), ElementsAre(NoAnswer));
    WaitUntilAsked();
}

TEST_F(SilentServerTest, BetweenPrintAndRestore) {
    OpenFirst([&] {
        Program->PickDocument(NameList);
        window::WhenShown("frmPrintPreview", [] { window::Key(Qt::Key_Escape); });
        Program->Click("cmdPrintVoorbeeld");
        const Silence silence(Server);
        Program->CloseManager();
        EXPECT_FALSE(silence.HasAnswered());
    });
    EXPECT_THAT(Messages(), IsEmpty());
    WaitUntilAsked();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

} // namespace
