#include "desktop/qt/QtPrinter.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <utility>

#include "desktop/cups/PaperTable.h"
#include "desktop/qt/PageUnits.h"
#include "machine/PrinterErrors.h"

namespace desktop::qt {

namespace {

constexpr double UnitsPerDot = static_cast<double>(UnitsPerInch) / DotsPerInch;

/// The sheet of a queue that tells no papers: it prints on what it has.
const cups::Paper Unlisted = [] {
    cups::Paper paper;
    paper.Id = cups::PaperA4;
    paper.Name = "A4";
    paper.Width = 210 / base::MillimetresPerInch * base::TwipsPerInch;
    paper.Height = 297 / base::MillimetresPerInch * base::TwipsPerInch;
    paper.StandIn = true;
    return paper;
}();

} // namespace

QtPrinter::QtPrinter(QtPrinters& printers, machine::PrintFailureTeller teller)
    : printers_(printers), teller_(std::move(teller)), canvas_(static_cast<PageDevice&>(*this)) {
    Drawing.Font = machine::PrintersOwnFont;
}

cups::PrintQueue& QtPrinter::Queue() {
    if (queue_ == nullptr) {
        Assign(printers_.DefaultIndex());
    }
    return *queue_;
}

void QtPrinter::Assign(int index) {
    queue_ = printers_.Share(index);
    settings_ = queue_->ReadSettings();
    Drawing = machine::DrawingState{0, 0, machine::PrintersOwnFont};
}

void QtPrinter::SetDocumentTitle(const std::string& title) {
    Abandon();
    title_ = title;
}

void QtPrinter::Abandon() {
    begun_ = false;
    DropOutput();
}

std::string QtPrinter::DeviceName() {
    return Queue().Name();
}

std::string QtPrinter::Port() {
    return Queue().Port();
}

std::int16_t QtPrinter::Orientation() {
    Queue();
    return settings_.Orientation;
}

void QtPrinter::SetOrientation(std::int16_t orientation) {
    Queue();
    if (orientation != cups::Portrait && orientation != cups::Landscape) {
        throw machine::InvalidOrientation();
    }
    settings_.Orientation = orientation;
}

std::int16_t QtPrinter::PaperSize() {
    return CurrentPaper().Id;
}

void QtPrinter::SetPaperSize(std::int16_t paper) {
    const auto& papers = Queue().Papers();
    if (std::none_of(papers.begin(), papers.end(),
                     [paper](const cups::Paper& each) { return each.Id == paper; })) {
        throw machine::UnknownPaper();
    }
    settings_.PaperId = paper;
    StoreWhereUnwritten(&cups::QueueSettings::PaperId);
}

std::int16_t QtPrinter::PaperBin() {
    Queue();
    return settings_.BinId;
}

void QtPrinter::SetPaperBin(std::int16_t bin) {
    const auto& bins = Queue().Bins();
    if (std::none_of(bins.begin(), bins.end(), [bin](const cups::Bin& each) { return each.Id == bin; })) {
        throw machine::UnknownBin();
    }
    settings_.BinId = bin;
    StoreWhereUnwritten(&cups::QueueSettings::BinId);
}

void QtPrinter::StoreWhereUnwritten(std::int16_t cups::QueueSettings::*field) {
    if (queue_->CouldNotBeOpened) {
        cups::QueueSettings stored = queue_->ReadSettings();
        stored.*field = settings_.*field;
        queue_->WriteSettings(stored);
    }
}

std::int16_t QtPrinter::Copies() {
    Queue();
    return settings_.Copies;
}

const cups::Paper& QtPrinter::CurrentPaper() {
    const auto& papers = Queue().Papers();
    if (papers.empty()) {
        return Unlisted;
    }
    const auto found = std::find_if(papers.begin(), papers.end(), [this](const cups::Paper& paper) {
        return paper.Id == settings_.PaperId;
    });
    return found == papers.end() ? papers.front() : *found;
}

const cups::Bin* QtPrinter::CurrentBin() {
    const auto& bins = Queue().Bins();
    const auto found = std::find_if(bins.begin(), bins.end(),
                                    [this](const cups::Bin& bin) { return bin.Id == settings_.BinId; });
    return found == bins.end() ? nullptr : &*found;
}

cups::TurnedSheet QtPrinter::Measure() {
    return cups::Turned(CurrentPaper(), settings_.Orientation);
}

double QtPrinter::Width() {
    return Measure().Width;
}

double QtPrinter::Height() {
    return Measure().Height;
}

double QtPrinter::ScaleLeft() {
    if (!Queue().ReachableNow()) {
        throw machine::PrinterNotReachable();
    }
    return 0;
}

double QtPrinter::ScaleWidth() {
    const cups::TurnedSheet sheet = Measure();
    return sheet.Width - sheet.Left - sheet.Right;
}

double QtPrinter::ScaleHeight() {
    const cups::TurnedSheet sheet = Measure();
    return sheet.Height - sheet.Top - sheet.Bottom;
}

int QtPrinter::GetDeviceCaps(int item) {
    switch (item) {
    case machine::CapsLogPixelsX:
    case machine::CapsLogPixelsY:
        return DotsPerInch;
    case machine::CapsPhysicalOffsetX:
        return Dots(Measure().Left);
    case machine::CapsPhysicalOffsetY:
        return Dots(Measure().Top);
    default:
        return 0;
    }
}

Sheet QtPrinter::SheetNow() {
    // The origin in whole dots, as GetDeviceCaps tells it.
    const cups::TurnedSheet sheet = Measure();
    return {sheet.Width, sheet.Height, Dots(sheet.Left) * TwipsPerDot, Dots(sheet.Top) * TwipsPerDot};
}

QPainter* QtPrinter::Painter() {
    return Begin() ? &document_->Painter() : nullptr;
}

bool QtPrinter::Begin() {
    if (!begun_) {
        BeginDocument();
    }
    return document_ != nullptr;
}

void QtPrinter::DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                           std::span<const QPointF> places) {
    document_->DrawGlyphs(face, glyphs, places);
}

void QtPrinter::BeginDocument() {
    begun_ = true; // whatever comes of it, the user is asked and told once
    try {
        job_ = Queue().BeginJob(title_, CurrentPaper(), CurrentBin());
        if (job_->IsWanted()) {
            output_ = std::make_unique<JobDevice>(*job_);
            document_ = std::make_unique<PdfDocument>(*output_, title_, SheetNow());
        }
    } catch (const base::RuntimeError& error) {
        Fail(error);
    }
}

void QtPrinter::NewPage() {
    if (!Begin()) {
        return;
    }
    try {
        document_->NewPage(SheetNow());
    } catch (const base::RuntimeError& error) {
        Fail(Loss().value_or(error));
    }
}

void QtPrinter::EndDocument() {
    if (!begun_ || document_ == nullptr) {
        Abandon();
        return;
    }
    document_->End();
    const std::optional<base::RuntimeError> loss = Loss();
    document_.reset();
    try {
        if (loss) {
            throw *loss;
        }
        job_->Finish();
    } catch (const base::RuntimeError& error) {
        begun_ = false;
        Fail(error);
    }
    Abandon();
}

void QtPrinter::DropOutput() {
    document_.reset(); // before the job, where it writes to its end
    output_.reset();
    job_.reset();
}

std::optional<base::RuntimeError> QtPrinter::Loss() const {
    if (!document_->HasFailed()) {
        return std::nullopt;
    }
    const int error = output_->Error() == 0 ? ENOMEM : output_->Error(); // what never came to the job
    const std::string text = job_->Loss(error);
    return text.empty() ? std::nullopt : std::optional(base::RuntimeError(base::ErrorPrinter, text));
}

void QtPrinter::Fail(const base::RuntimeError& error) {
    DropOutput();
    teller_(error.Description());
    throw error;
}

double QtPrinter::LineWidth() {
    return UnitsPerDot;
}

} // namespace desktop::qt
