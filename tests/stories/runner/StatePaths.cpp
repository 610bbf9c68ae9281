#include "Fields.h"
#include "Paths.h"
#include "World.h"
#include "composition/PrintSurface.h"
#include "testdata/Tables.h"

namespace scenario {

namespace {

using state::AppState;

constexpr Field<AppState> StateFields[] = {
    {"CurrencySymbol", &AppState::CurrencySymbol},
    {"MonetaryDecimal", &AppState::MonetaryDecimal},
    {"MonetaryThousand", &AppState::MonetaryThousand},
    {"ListFontName", &AppState::ListFontName},
    {"CrLf", &AppState::CrLf},
    {"Blank", &AppState::Blank},
    {"MessageTitle", &AppState::MessageTitle},
    {"CallerFormName", &AppState::CallerFormName},
    {"SettingsKey", &AppState::SettingsKey},
    {"DocumentTitle", &AppState::DocumentTitle},
    {"GMUVerkeer", &AppState::GMUVerkeer},
    {"GMUFontName", &AppState::GMUFontName},
    {"GMUCode", &AppState::GMUCode},
    {"GMUFontSize", &AppState::GMUFontSize},
    {"GMUServiceNr", &AppState::GMUServiceNr},
    {"GMUContractVorm", &AppState::GMUContractVorm},
    {"IncassantAfdrukken", &AppState::IncassantAfdrukken},
    {"IncassantBegunstigde", &AppState::IncassantBegunstigde},
    {"IncassantAdres", &AppState::IncassantAdres},
    {"IncassantPostCode", &AppState::IncassantPostCode},
    {"IncassantWoonplaats", &AppState::IncassantWoonplaats},
    {"IncassantBankGiro", &AppState::IncassantBankGiro},
    {"OCRLinks", &AppState::OCRLinks},
    {"OCRTop", &AppState::OCRTop},
    {"AcceptGiroLinks", &AppState::AcceptGiroLinks},
    {"AcceptGiroTop", &AppState::AcceptGiroTop},
    {"AcceptGiroNAWLinks", &AppState::AcceptGiroNAWLinks},
    {"AcceptGiroNAWTop", &AppState::AcceptGiroNAWTop},
    {"AcceptGiroBKSoucheLinks", &AppState::AcceptGiroBKSoucheLinks},
    {"AcceptGiroBKSoucheTop", &AppState::AcceptGiroBKSoucheTop},
    {"AcceptGiroBKAcceptLinks", &AppState::AcceptGiroBKAcceptLinks},
    {"AcceptGiroBKAcceptTop", &AppState::AcceptGiroBKAcceptTop},
    {"AcceptGiroBGSoucheLinks", &AppState::AcceptGiroBGSoucheLinks},
    {"AcceptGiroBGSoucheTop", &AppState::AcceptGiroBGSoucheTop},
    {"AcceptGiroBGAcceptLinks", &AppState::AcceptGiroBGAcceptLinks},
    {"AcceptGiroBGAcceptTop", &AppState::AcceptGiroBGAcceptTop},
    {"PrintManagerOpen", &AppState::PrintManagerOpen},
    {"PrinterInit", &AppState::PrinterInit},
    {"PrintAfterPreview", &AppState::PrintAfterPreview},
    {"AcceptgiroType", &AppState::AcceptgiroType},
    {"OverrulePaperSize", &AppState::OverrulePaperSize},
    {"PhysicalOffsetX", &AppState::PhysicalOffsetX},
    {"PhysicalOffsetY", &AppState::PhysicalOffsetY},
    {"PrinterOrientation", &AppState::PrinterOrientation},
    {"MatrixPrinter", &AppState::MatrixPrinter},
    {"LeftMargin", &AppState::LeftMargin},
    {"TwipsPerCm", &AppState::TwipsPerCm},
    {"PageWidth", &AppState::PageWidth},
    {"PageHeight", &AppState::PageHeight},
    {"LineHeight", &AppState::LineHeight},
    {"SurfaceWidth", &AppState::SurfaceWidth},
    {"SurfaceLeft", &AppState::SurfaceLeft},
    {"SurfaceHeight", &AppState::SurfaceHeight},
    {"SurfaceTop", &AppState::SurfaceTop},
};

Json TableValue(const base::TextTable* table, const PathPart& part) {
    if (table == nullptr || !part.HasIndex() || part.Index < 0 || part.Index > table->LastIndex()) {
        throw ScriptError(part.Name + " has no such row");
    }
    return (*table)[part.Index];
}

Json SurfaceName(const World& world) {
    if (world.state.Surface == nullptr) {
        return nullptr;
    }
    return dynamic_cast<const composition::PrinterSurface*>(world.state.Surface) != nullptr ? "printer"
                                                                                            : "preview";
}

[[noreturn]] void NoSuchField(const PathPart& part) {
    throw ScriptError("no such field of AppState: " + part.Name);
}

} // namespace

Json StateValue(const World& world, const PathPart& part) {
    if (part.Name == "Surface") {
        return SurfaceName(world);
    }
    if (part.Name == "PersonTable") {
        return TableValue(world.state.PersonTable, part);
    }
    if (part.Name == "AccountTable") {
        return TableValue(world.state.AccountTable, part);
    }
    Json value;
    if (!WithField(world.state, StateFields, part, [&](const auto& field) { value = field; })) {
        NoSuchField(part);
    }
    return value;
}

void PokeState(World& world, const PathPart& part, const Json& value) {
    if (!WithField(world.state, StateFields, part, [&](auto& field) { Assign(field, value); })) {
        NoSuchField(part);
    }
}

} // namespace scenario
