// Failures that no handler of the program knows, on their way through the toolkit.
#include <csignal>
#include <cstdint>
#include <functional>
#include <new>
#include <vector>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "desktop/qt/EndSignals.h"
#include "desktop/qt/Guarded.h"
#include "memory/MemoryPlatform.h"

namespace {

/// An object whose handler fails.
class Failing : public QObject {
  public:
    explicit Failing(std::function<void()> handler) : handler_(std::move(handler)) {}
    bool event(QEvent*) override {
        handler_();
        return true;
    }

  private:
    std::function<void()> handler_;
};

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        memory.recorder.Sink = [this](const memory::Event& event) {
            if (event.Kind == "error") {
                numbers.push_back(std::get<std::int64_t>(event.Fields[0].Value));
            }
        };
        desktop::qt::TellFailuresOn(&memory.desktop);
    }
    ~ApplicationTest() override { desktop::qt::TellFailuresOn(nullptr); }

    static void Send(const std::function<void()>& handler) {
        Failing object(handler);
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&object, &event);
    }

    memory::MemoryPlatform memory;
    std::vector<std::int64_t> numbers;
};

TEST_F(ApplicationTest, TellsWhatNoHandlerKnowsAndGoesOn) {
    Send([] { throw base::SubscriptOutOfRange(); });
    Send([] { throw std::bad_alloc(); });
    Send([] { throw std::logic_error("x"); });
    EXPECT_EQ(numbers,
              (std::vector<std::int64_t>{base::ErrorSubscriptOutOfRange, base::ErrorOutOfMemory, 51}));
}

TEST_F(ApplicationTest, LetsItPassWhereNobodyIsTold) {
    desktop::qt::TellFailuresOn(nullptr);
    EXPECT_THROW(Send([] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_TRUE(numbers.empty());
}

// A document that outgrows the limit that a user has on files is a failure like a full disk.
TEST(EndSignalsTest, LetTheProgramLiveWhereAFileMayNotGrow) {
    const auto before = std::signal(SIGXFSZ, SIG_DFL);
    {
        const desktop::qt::EndSignals ending([] {}, [] { return true; });
        EXPECT_EQ(std::signal(SIGXFSZ, SIG_IGN), SIG_IGN);
    }
    EXPECT_EQ(std::signal(SIGXFSZ, before), SIG_DFL) << "it is as it was";
}

} // namespace
