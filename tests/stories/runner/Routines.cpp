// The plain routines that work on texts and numbers.
#include "Arguments.h"
#include "Calls.h"
#include "ScriptError.h"
#include "World.h"
#include "base/Numbers.h"
#include "composition/SurfaceRules.h"
#include "payment/Accounts.h"
#include "payment/CheckDigits.h"
#include "payment/Iban.h"
#include "payment/PaymentReference.h"
#include "payment/TextRoutines.h"
#include "wizard/ToetsFilter.h"

namespace scenario {

namespace {

struct Routine {
    std::string_view Name;
    std::size_t Arguments;
    Json (*Run)(World&, scenario::Arguments&);
};

/// Runs a routine that may change its first argument, a text.
template <class Function>
Json WithText(Arguments& a, Function function) {
    std::string text = a.Text(0);
    Json result = function(text);
    a.Set(0, text);
    return result;
}

Json CallToetsFilter(World& /*world*/, Arguments& a) {
    std::int16_t toets = a.Int16(0);
    Json result = wizard::ToetsFilter(toets, a.Text(1));
    a.Set(0, toets);
    return result;
}

/// Also before the start, which sets the unit of length.
Json CallKalibreer(World& world, Arguments& a) {
    constexpr std::int16_t twipsPerCm = 567;
    state::AppState state;
    state.TwipsPerCm = world.state.TwipsPerCm == 0 ? twipsPerCm : world.state.TwipsPerCm;
    return composition::Kalibreer(state, world.memory.locale, a.Int32(0), a.Text(1));
}

constexpr Routine Routines[] = {
    {"ToetsFilter", 2, CallToetsFilter},
    {"BankGiroCheck", 1, [](World&, Arguments& a) { return Json(payment::BankGiroCheck(a.Text(0))); }},
    {"Text2Rekening", 1, [](World&, Arguments& a) { return Json(payment::Text2Rekening(a.Text(0))); }},
    {"Rekening2Text", 1, [](World&, Arguments& a) { return Json(payment::Rekening2Text(a.Text(0))); }},
    {"VerwijderTeken", 2,
     [](World&, Arguments& a) { return Json(payment::VerwijderTeken(a.Text(0), a.Text(1))); }},
    {"IsGetal", 1, [](World&, Arguments& a) { return Json(payment::IsGetal(a.Text(0))); }},
    {"PostcodeFormaat", 1,
     [](World&, Arguments& a) {
         return WithText(a, [](std::string& text) { return Json(payment::PostcodeFormaat(text)); });
     }},
    {"NieuwRekeningnummer", 1,
     [](World& w, Arguments& a) {
         return Json(payment::NieuwRekeningnummer(a.Text(0), w.memory.random, w.memory.clock));
     }},
    {"IBANCheck", 1, [](World&, Arguments& a) { return Json(payment::IBANCheck(a.Text(0))); }},
    {"Modulus", 2,
     [](World&, Arguments& a) {
         return WithText(a, [&](std::string& text) { return Json(payment::Modulus(text, a.Int16(1))); });
     }},
    {"IBAN2BIC", 1, [](World&, Arguments& a) { return Json(payment::IBAN2BIC(a.Text(0))); }},
    {"BankCode2BIC", 2,
     [](World&, Arguments& a) { return Json(payment::BankCode2BIC(a.Text(0), a.Text(1))); }},
    {"NulVulling", 2, [](World&, Arguments& a) { return Json(payment::NulVulling(a.Int32(0), a.Int16(1))); }},
    {"KenmerkControle", 1,
     [](World&, Arguments& a) {
         return WithText(a, [](std::string& text) { return Json(payment::KenmerkControle(text)); });
     }},
    {"BedragControle", 1,
     [](World&, Arguments& a) {
         return WithText(a, [](std::string& text) { return Json(payment::BedragControle(text)); });
     }},
    {"MaakBetalingskenmerk", 4,
     [](World&, Arguments& a) {
         return Json(payment::MaakBetalingskenmerk(a.Text(0), a.Text(1), a.Text(2), a.Text(3)));
     }},
    {"Kalibreer", 2, CallKalibreer},
    {"NumericValue", 1, [](World&, Arguments& a) { return Number(base::NumericValue(a.Text(0))); }},
    {"Int16OfText", 1, [](World&, Arguments& a) { return Json(base::Int16OfText(a.Text(0))); }},
    {"Int32OfText", 1, [](World&, Arguments& a) { return Json(base::Int32OfText(a.Text(0))); }},
};

} // namespace

Json CallRoutine(World& world, const std::string& name, Arguments& arguments) {
    for (const Routine& routine : Routines) {
        if (routine.Name == name) {
            arguments.ExpectCount(routine.Arguments);
            return routine.Run(world, arguments);
        }
    }
    throw ScriptError("no such routine: " + name);
}

} // namespace scenario
