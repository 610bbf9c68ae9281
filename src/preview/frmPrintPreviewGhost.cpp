#include "preview/frmPrintPreviewGhost.h"

#include <cstring>
#include <new>

#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "forms/Desktop.h"
#include "preview/frmPrintPreview.h"

namespace preview {

namespace {

constexpr std::int16_t MostPages = 40;
constexpr std::int32_t SmallestTrack = 200; // dots
constexpr std::int32_t White = 0xFFFFFF;
constexpr int NoSuchElement = 340;

} // namespace

frmPrintPreviewGhost::frmPrintPreviewGhost(forms::Session& session, machine::Platform& platform,
                                           const state::AppState& state, frmPrintPreview& preview)
    : Form(session, "frmPrintPreviewGhost"), platform_(platform), state_(state), preview_(preview) {
    SetCaption("Preview Ghost");
}

void frmPrintPreviewGhost::OnLoad() {
    machine::Printer& printer = platform_.Printer;
    Tag = "0";
    BackColor = White;
    ThisPage[0] = {};

    lPageWidth = base::ToInt32(printer.Width());
    lPageHeight = base::ToInt32(printer.Height());
    lMarginLeft = base::ToInt32((lPageWidth - printer.ScaleWidth()) / 2);
    lMarginTop = base::ToInt32((lPageHeight - printer.ScaleHeight()) / 2);
    lMaxTrackX = base::ToInt32(printer.Width());
    lMaxTrackY = base::ToInt32(printer.Height());

    preview_.Load();

    Msg = std::make_unique<forms::MsgHook>(platform_.WindowProcedures);
    Msg->Before = [this](auto& uMsg, auto& wParam, auto& lParam, auto& retVal) {
        Msg_Before(uMsg, wParam, lParam, retVal);
    };
    Msg->Hook(hWnd(), {machine::WM_GETMINMAXINFO});

    const double width = printer.ScaleWidth();
    Resize(width, lPageHeight);
    Move(Left(), 0);
    page_ = platform_.Bitmaps.CreatePage(width, lPageHeight);

    iPage = 0;
    iDisplayPage = 1;
    Newpage();
}

machine::Canvas& frmPrintPreviewGhost::Drawing() {
    if (page_ == nullptr) {
        throw base::NoObject();
    }
    return page_->Drawing();
}

machine::TextSize frmPrintPreviewGhost::DrawingTarget::MeasureText(std::string_view text,
                                                                   const machine::FontSpec& font) {
    return form_.Drawing().MeasureText(text, font);
}

void frmPrintPreviewGhost::DrawingTarget::DrawText(double x, double y, std::string_view text,
                                                   const machine::FontSpec& font) {
    machine::Canvas& page = form_.Drawing();
    if (form_.AutoRedraw) {
        page.DrawText(x, y, text, font);
    }
}

void frmPrintPreviewGhost::DrawingTarget::DrawLine(double x1, double y1, double x2, double y2,
                                                   std::int32_t colour) {
    machine::Canvas& page = form_.Drawing();
    if (form_.AutoRedraw) {
        page.DrawLine(x1, y1, x2, y2, colour);
    }
}

void frmPrintPreviewGhost::Cls() {
    page_->Cls();
    drawing_.CurrentX = 0;
    drawing_.CurrentY = 0;
}

frmPrintPreviewGhost::PageHolder& frmPrintPreviewGhost::Holder(std::int16_t page) {
    const auto found = ThisPage.find(page);
    if (found == ThisPage.end()) {
        throw base::RuntimeError(NoSuchElement,
                                 "Control array element '" + std::to_string(page) + "' doesn't exist");
    }
    return found->second;
}

void frmPrintPreviewGhost::Newpage() {
    base::Resume([this] {
        try {
            KeepPage();
        } catch (const std::bad_alloc&) { // one page less to see is no reason to show none
            throw base::OutOfMemory();
        }
    });
}

void frmPrintPreviewGhost::KeepPage() {
    const double tally = base::NumericValue(Tag);
    if (tally > MostPages) {
        if (page_ != nullptr) {
            page_->Discard(); // it is page 41, with whatever comes on top of it
        }
        return;
    }
    Tag = base::NumberText(tally + 1);
    Drawing();
    AutoRedraw = false;
    Desktop().Yield();
    Holder(iPage).Picture = page_->Image();
    Desktop().Yield();
    AutoRedraw = true;
    Cls();
    ++iPage;
    PageHolder& next = ThisPage[iPage];
    next.Width = platform_.Printer.ScaleWidth();
    next.Height = lPageHeight;
}

void frmPrintPreviewGhost::EndDoc() {
    Drawing().EndDocument();
    AutoRedraw = false;
    Holder(iPage).Picture = page_->Image();
    AutoRedraw = true;
    FinishPages();
    if (iPage > MostPages) {
        iPage = MostPages;
        ThisPage.erase(MostPages + 1);
    }
}

void frmPrintPreviewGhost::FinishPages() {
    if (base::NumericValue(Tag) > MostPages) {
        Desktop().MsgBox("Er zijn meer dan 40 pagina's gevonden, in het afdrukvoorbeeld worden maximaal 40 "
                         "pagina's getoond.",
                         forms::MessageIcon::Information, state_.MessageTitle);
        Tag = base::NumberText(MostPages);
    }
    preview_.SetiTotalPages(base::Int16OfText(Tag));
    preview_.SetButtons(1);
    DisplayOnScreen(1);
}

void frmPrintPreviewGhost::DisplayVolgende() {
    DisplayOnScreen(++iDisplayPage);
}

void frmPrintPreviewGhost::DisplayVorige() {
    DisplayOnScreen(--iDisplayPage);
}

void frmPrintPreviewGhost::DisplayOnScreen(std::int16_t WhichPage) {
    Desktop().HourglassOn();
    preview_.pictCurrentPage.SetPage(Holder(WhichPage).Picture);
    Desktop().HourglassOff();
}

void frmPrintPreviewGhost::Msg_Before(std::int32_t& uMsg, std::intptr_t& /*wParam*/, std::intptr_t& lParam,
                                      std::intptr_t& retVal) {
    if (uMsg != machine::WM_GETMINMAXINFO || lParam == 0) {
        return;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message carries the structure's address as a number
    void* address = reinterpret_cast<void*>(lParam);
    machine::MINMAXINFO bounds;
    std::memcpy(&bounds, address, sizeof bounds);
    bounds.ptMinTrackSize = {SmallestTrack, SmallestTrack};
    bounds.ptMaxTrackSize = {lMaxTrackX, lMaxTrackY};
    std::memcpy(address, &bounds, sizeof bounds);
    retVal = 0;
}

void frmPrintPreviewGhost::ClearPages() {
    const std::int16_t highest = ThisPage.empty() ? std::int16_t{0} : ThisPage.rbegin()->first;
    for (std::int16_t page = 1; page <= highest; ++page) {
        ThisPage.erase(page);
    }
}

} // namespace preview
