// Tells what the program would offer on a queue, and what a job would say, as JSON.
//
// queue_probe --ppd FILE [--own "NAME=VALUE ..."] [--paper NAME] [--bin NAME]
//     by a PPD alone, without a server
// queue_probe --ppds
//     by each PPD that the standard input names on a line: a line of JSON for each, with the
//     milliseconds of processor
// queue_probe --queue NAME [--paper NAME] [--bin NAME] [--print FILE.pdf [--title TITLE]]
//     by the print server that CUPS_SERVER names; --print sends the file through the program's own job
// queue_probe --queues
//     the names of all printers
//
// A paper or bin is given by its name, its number or its choice in the PPD; without, it is the one that the
// program would show first. --own are options as `lpoptions` has them. The answer has "papers" (id, name,
// ppd, pwg, width, height, left, top, right and bottom margin in millimetres), "bins" (id, name, option, ppd,
// pwg), "default" (paper, bin, orientation), "job": the paper, the bin and all options of the job, "dpi" and
// "imposed": what no job overrides.
// The end is 0, or 1 with a word on the standard error where the queue or the choice is not there.
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <stdexcept>
#include <string>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "base/RuntimeError.h"
#include "desktop/cups/CupsChoice.h"
#include "desktop/cups/CupsQueue.h"
#include "desktop/cups/OptionLine.h"
#include "desktop/cups/QueueDefaults.h"
#include "desktop/qt/QtPrinters.h"

namespace {

using namespace desktop::qt;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

double Millimetres(double twips) {
    return twips / 1440 * 25.4;
}

QJsonObject Json(const desktop::cups::Paper& paper) {
    return {{"id", paper.Id},
            {"name", Text(paper.Name)},
            {"ppd", Text(paper.PpdSize)},
            {"pwg", Text(paper.PwgMedia)},
            {"width", Millimetres(paper.Width)},
            {"height", Millimetres(paper.Height)},
            {"left", Millimetres(paper.Left)},
            {"top", Millimetres(paper.Top)},
            {"right", Millimetres(paper.Right)},
            {"bottom", Millimetres(paper.Bottom)},
            {"standIn", paper.StandIn}};
}

QJsonObject Json(const desktop::cups::Bin& bin) {
    return {{"id", bin.Id},
            {"name", Text(bin.Name)},
            {"option", Text(bin.PpdOption)},
            {"ppd", Text(bin.PpdSlot)},
            {"pwg", Text(bin.PwgSource)},
            {"standIn", bin.StandIn}};
}

QJsonObject Json(const desktop::cups::CupsOptions& options) {
    QJsonObject json;
    for (const auto& [name, value] : options) {
        json[Text(name)] = Text(value);
    }
    return json;
}

template <class Item>
QJsonArray JsonList(const std::vector<Item>& items) {
    QJsonArray list;
    for (const Item& item : items) {
        list.append(Json(item));
    }
    return list;
}

QJsonArray Texts(const std::vector<std::string>& texts) {
    QJsonArray list;
    for (const std::string& text : texts) {
        list.append(Text(text));
    }
    return list;
}

bool Is(const desktop::cups::Paper& paper, const std::string& word) {
    return paper.Name == word || paper.PpdSize == word || paper.PwgMedia == word;
}
bool Is(const desktop::cups::Bin& bin, const std::string& word) {
    return bin.Name == word || bin.PpdSlot == word || bin.PwgSource == word;
}

/// The item of a word, else that of a number; the first if there is none of that number, as a list shows it.
template <class Item>
const Item& Choose(const std::vector<Item>& items, const QString& word, std::int16_t preset) {
    const auto where = [&items](auto matches) { return std::find_if(items.begin(), items.end(), matches); };
    if (!word.isEmpty()) {
        const auto found = where([&word](const Item& item) {
            return Is(item, word.toStdString()) || QString::number(item.Id) == word;
        });
        if (found == items.end()) {
            throw std::runtime_error("no such choice: " + word.toStdString());
        }
        return *found;
    }
    const auto found = where([preset](const Item& item) { return item.Id == preset; });
    return found == items.end() ? items.front() : *found;
}

struct Wanted {
    QString Paper;
    QString Bin;
};

/// What is the same for a PPD and for a queue of a server.
QJsonObject Describe(const std::vector<desktop::cups::Paper>& papers,
                     const std::vector<desktop::cups::Bin>& bins,
                     const desktop::cups::QueueSettings& settings, const desktop::cups::Paper& paper,
                     const desktop::cups::Bin& bin, const desktop::cups::CupsOptions& job) {
    return {{"papers", JsonList(papers)},
            {"bins", JsonList(bins)},
            {"default", QJsonObject{{"paper", settings.PaperId},
                                    {"bin", settings.BinId},
                                    {"orientation", settings.Orientation}}},
            {"job", QJsonObject{{"paper", Json(paper)}, {"bin", Json(bin)}, {"options", Json(job)}}}};
}

QJsonObject ByPpd(const QString& file, const QString& own, const Wanted& wanted) {
    const std::unique_ptr<ipp_t, desktop::cups::FreeIpp> noAttributes(ippNew());
    desktop::cups::CupsMedia media = desktop::cups::MediaOfQueue(noAttributes.get(), file.toStdString());
    const desktop::cups::CupsOptions options = desktop::cups::OptionsOf("Dest queue " + own.toStdString());
    desktop::cups::OfferOwnSheet(media, desktop::cups::OwnSizeIn(options));
    desktop::cups::QueueSettings settings{desktop::cups::Portrait, media.DefaultPaper, media.DefaultBin, 1};
    if (const desktop::cups::Paper* paper = desktop::cups::PaperIn(media, options)) {
        settings.PaperId = paper->Id;
    }
    if (const desktop::cups::Bin* bin = desktop::cups::BinIn(media, options)) {
        settings.BinId = bin->Id;
    }
    const desktop::cups::Paper& paper = Choose(media.Papers, wanted.Paper, settings.PaperId);
    const desktop::cups::Bin& bin = Choose(media.Bins, wanted.Bin, settings.BinId);
    QJsonObject json = Describe(media.Papers, media.Bins, settings, paper, bin,
                                desktop::cups::JobOptions(media, options, {}, paper, &bin));
    json["dpi"] = desktop::cups::DotsPerInchOf(media, options, {});
    json["imposed"] = Texts(desktop::cups::ImposedOn(media, options, {}));
    return json;
}

/// Answers at once, so that the end of the program tells which file it could not read.
void ByPpds() {
    std::string file;
    while (std::getline(std::cin, file)) {
        const std::clock_t begun = std::clock();
        QJsonObject json = ByPpd(QString::fromStdString(file), "", {});
        json["ms"] = 1000.0 * static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
        std::puts(QJsonDocument(json).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    }
}

void Send(desktop::cups::PrintQueue& queue, const desktop::cups::Paper& paper, const desktop::cups::Bin& bin,
          const QString& file, const QString& title) {
    QFile document(file);
    if (!document.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + file.toStdString());
    }
    const std::unique_ptr<desktop::cups::PrintJob> job = queue.BeginJob(title.toStdString(), paper, &bin);
    job->Write(document.readAll().toStdString());
    job->Finish();
}

QJsonObject ByQueue(QtPrinters& printers, const QString& name, const QCommandLineParser& line,
                    const Wanted& wanted) {
    desktop::cups::PrintQueue* const queue = printers.Find(name.toStdString());
    if (queue == nullptr || !queue->Reachable()) {
        throw std::runtime_error("no such queue: " + name.toStdString());
    }
    const desktop::cups::QueueSettings settings = queue->ReadSettings();
    const desktop::cups::Paper& paper = Choose(queue->Papers(), wanted.Paper, settings.PaperId);
    const desktop::cups::Bin& bin = Choose(queue->Bins(), wanted.Bin, settings.BinId);
    const auto* const cups = dynamic_cast<desktop::cups::CupsQueue*>(queue);
    QJsonObject json =
        Describe(queue->Papers(), queue->Bins(), settings, paper, bin,
                 cups == nullptr ? desktop::cups::CupsOptions() : cups->OptionsFor(paper, &bin));
    json["trouble"] = Text(queue->Trouble());
    const machine::PrinterCondition condition = queue->Condition();
    json["dpi"] = condition.DotsPerInch;
    json["imposed"] = Texts(condition.Imposed);
    if (line.isSet("print")) {
        Send(*queue, paper, bin, line.value("print"), line.value("title"));
    }
    return json;
}

QJsonObject Run(const QCommandLineParser& line) {
    const Wanted wanted{line.value("paper"), line.value("bin")};
    if (line.isSet("ppd")) {
        return ByPpd(line.value("ppd"), line.value("own"), wanted);
    }
    QtPrinters printers;
    if (line.isSet("queue")) {
        return ByQueue(printers, line.value("queue"), line, wanted);
    }
    QJsonArray names;
    for (int i = 0; i < printers.Count(); ++i) {
        names.append(Text(printers.Item(i).DeviceName));
    }
    return {{"queues", names}};
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser line;
    line.addOptions({{"ppd", "by a PPD", "file"},
                     {"ppds", "by many PPDs"},
                     {"own", "the user's options", "options"},
                     {"queue", "by the print server", "name"},
                     {"queues", "names of all printers"},
                     {"paper", "the paper of the job", "name"},
                     {"bin", "the bin of the job", "name"},
                     {"print", "a document to send", "file"},
                     {"title", "its title", "title", "queue_probe"}});
    line.addHelpOption();
    line.process(application);
    try {
        if (line.isSet("ppds")) {
            ByPpds();
            return EXIT_SUCCESS;
        }
        std::fputs(QJsonDocument(Run(line)).toJson().constData(), stdout);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
