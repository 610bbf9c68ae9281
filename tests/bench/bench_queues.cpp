// How long the print manager takes to open, by the number of queues that the print server has, and where the
// server takes connections and does not answer. Tells the ratio to a server with one queue, measured in
// turns.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "desktop/qt/QtPlatform.h"
#include "print/queues/RealProgram.h"
#include "unit/desktop/qt/Window.h"
#include "unit/desktop/qt/printing/PrintServer.h"

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int Turns = 5;
constexpr int OpeningsInATurn = 5;
constexpr int ManyQueues = 200;
constexpr double RatioGoal = 3;
constexpr double SilentGoal = 3200; // the patience, and what an opening takes by itself

QList<PrintQueueKind> Queues(int count) {
    QList<PrintQueueKind> others;
    for (int i = 1; i < count; ++i) {
        others.append({QStringLiteral("Printer%1").arg(i), QStringLiteral("Kamer %1").arg(i)});
    }
    return others;
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// From the press on the wizard's button to the manager on show with its printer's lists.
double Open(RealProgram& program) {
    const auto start = std::chrono::steady_clock::now();
    double took = 0;
    program.OpenManager([&] {
        took = Milliseconds(std::chrono::steady_clock::now() - start).count();
        program.CloseManager();
    });
    return took;
}

/// A first opening, which asks the printer for its lists.
double OpenFirst() {
    RealProgram program;
    program.GoToTheLastPage();
    return Open(program);
}

void MeasureWith(int queues, std::vector<double>& times) {
    const PrintServer server(Queues(queues));
    OpenFirst(); // the server reads its queues' papers
    for (int i = 0; i < OpeningsInATurn; ++i) {
        times.push_back(OpenFirst());
    }
}

double WithSilentServer() {
    PrintServer server;
    RealProgram program;
    program.GoToTheLastPage();
    Open(program);
    server.Freeze();
    return Open(program);
}

bool Verdict(const char* name, double value, double goal) {
    std::printf("%-44s %10.2f  goal %8.2f  %s\n", name, value, goal, value <= goal ? "ok" : "MISSED");
    return value <= goal;
}

} // namespace

int main(int argc, char** argv) {
    PrintServer::PrepareEnvironment();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The screen that is not there says at each window what it cannot do.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const desktop::qt::DutchApplication application(argc, argv);
    std::vector<double> withOne;
    std::vector<double> withMany;
    for (int turn = 0; turn < Turns; ++turn) {
        MeasureWith(1, withOne);
        MeasureWith(ManyQueues, withMany);
    }
    const double one = Median(withOne);
    const double many = Median(withMany);
    const double silent = WithSilentServer();
    std::printf("opening the print manager: 1 queue %.1f ms, %d queues %.1f ms, silent server %.0f ms\n", one,
                ManyQueues, many, silent);
    const bool good = Verdict("200 queues against one", many / one, RatioGoal);
    return Verdict("a silent server, ms", silent, SilentGoal) && good ? 0 : 1;
}
