#include "platform/qt/CupsMedia.h"
#include "platform/qt/CupsPpd.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace platform::qt {
namespace {

struct FreeIpp {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using Answer = std::unique_ptr<ipp_t, FreeIpp>;

template <std::size_t N>
void AddKeywords(const Answer& answer, const char* name, const std::array<const char*, N>& keywords) {
    ippAddStrings(answer.get(), IPP_TAG_PRINTER, IPP_TAG_KEYWORD, name, static_cast<int>(N), nullptr,
                  keywords.data());
}

TEST(MediaOfAttributes, ListsPapersAndBinsOfAQueueWithoutAPpd) {
    const Answer answer(ippNew());
    AddKeywords<7>(answer, "media-supported",
                   {"na_legal_8.5x14in", "iso_a4_210x297mm", "custom_min_10x10mm", "custom_max_500x500mm",
                    "transparency", "om_kaart_100x200mm", "iso_a4_210x297mm"});
    AddKeywords<1>(answer, "media-default", {"iso_a4_210x297mm"});
    AddKeywords<3>(answer, "media-source-supported", {"auto", "tray-1", "tray-19"});
    ipp_t* margins = ippNew();
    ippAddInteger(margins, IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-left-margin", 635);
    ippAddInteger(margins, IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-top-margin", 423);
    ippAddString(margins, IPP_TAG_PRINTER, IPP_TAG_KEYWORD, "media-source", nullptr, "tray-19");
    ippAddCollection(answer.get(), IPP_TAG_PRINTER, "media-col-default", margins);
    ippDelete(margins);

    const CupsMedia media = MediaOfAttributes(answer.get());
    ASSERT_EQ(media.Papers.size(), 4U);
    EXPECT_EQ(media.Papers[0].Id, 5);
    EXPECT_EQ(media.Papers[1].Id, 9);
    EXPECT_EQ(media.Papers[1].Name, "A4");
    EXPECT_NEAR(media.Papers[1].Width, 11906, 1);
    EXPECT_NEAR(media.Papers[1].Left, 360, 0.1);
    EXPECT_NEAR(media.Papers[1].Top, 239.8, 0.1);
    EXPECT_EQ(media.Papers[1].Bottom, 0);
    EXPECT_EQ(media.Papers[2].Id, 258);
    EXPECT_NEAR(media.Papers[2].Height, 11339, 1);
    EXPECT_EQ(media.Papers[3].Id, 259); // its code is taken
    EXPECT_EQ(media.DefaultPaper, 9);
    ASSERT_EQ(media.Bins.size(), 3U);
    EXPECT_EQ(media.Bins[0].Id, 7);
    EXPECT_EQ(media.Bins[0].Name, "Automatisch");
    EXPECT_EQ(media.Bins[1].Id, 257);
    EXPECT_EQ(media.Bins[1].Name, "Lade 1");
    EXPECT_EQ(media.Bins[2].Name, "tray-19");
    EXPECT_EQ(media.DefaultBin, media.Bins[2].Id);
}

TEST(MediaOfAttributes, TakesNoBinForTheDefaultThatTheQueueDoesNotTell) {
    const auto presetOf = [](const std::array<const char*, 2>& sources) {
        const Answer answer(ippNew());
        AddKeywords<2>(answer, "media-source-supported", sources);
        return MediaOfAttributes(answer.get()).DefaultBin;
    };
    EXPECT_EQ(presetOf({"tray-1", "tray-2"}), 0);
    EXPECT_EQ(presetOf({"tray-1", "auto"}), 7);
}

TEST(MediaOfQueue, OffersOneSheetAndOneBinWhereNoneIsTold) {
    const auto sheetOf = [](const char* preset) {
        const Answer answer(ippNew());
        if (preset != nullptr) {
            AddKeywords<1>(answer, "media-default", {preset});
        }
        const CupsMedia media = MediaOfQueue(answer.get(), "");
        EXPECT_EQ(media.Papers.size(), 1U);
        EXPECT_TRUE(media.Papers.front().StandIn);
        EXPECT_EQ(media.DefaultPaper, media.Papers.front().Id);
        EXPECT_EQ(media.Bins.size(), 1U);
        EXPECT_TRUE(media.Bins.front().StandIn);
        EXPECT_EQ(media.DefaultBin, 7);
        return media.Papers.front().Name;
    };
    EXPECT_EQ(sheetOf(nullptr), "A4");
    EXPECT_EQ(sheetOf("na_legal_8.5x14in"), "Legal");
    EXPECT_EQ(sheetOf("A5"), "A5");
    EXPECT_EQ(sheetOf("iets_anders"), "A4");
}

TEST(MediaOfAttributes, ListsNothingWhereNothingIsToldOrItIsOfAnotherKind) {
    const Answer empty(ippNew());
    EXPECT_TRUE(MediaOfAttributes(empty.get()).Papers.empty());
    const Answer odd(ippNew());
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-supported", 7);
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-col-default", 7);
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-source-supported", 7);
    EXPECT_TRUE(MediaOfAttributes(odd.get()).Papers.empty());
    EXPECT_TRUE(MediaOfAttributes(odd.get()).Bins.empty());
}

TEST(MediaOfPpd, ListsNothingForADamagedFile) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("damaged.ppd");
    for (const QByteArray& text :
         {QByteArray(), QByteArray(100'000, '*'), QByteArray("*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize"),
          QByteArray("%PDF-1.4\n\0\0\xFF", 12)}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_TRUE(MediaOfPpd(path.toStdString()).Papers.empty());
    }
    EXPECT_TRUE(MediaOfPpd(folder.filePath("missing.ppd").toStdString()).Papers.empty());
}

TEST(NumberMedia, StaysWithinSixteenBits) {
    CupsMedia media;
    media.Papers.resize(40'000);
    NumberMedia(media);
    for (const Paper& paper : media.Papers) {
        EXPECT_GE(paper.Id, 256);
    }
}

TEST(KeepNumbers, GivesANumberToOnePaperForGood) {
    const auto media = [](const std::string& keyword) {
        CupsMedia made;
        for (const std::string& each : {std::string("iso_a4_210x297mm"), keyword}) {
            Paper paper;
            paper.PwgMedia = each;
            made.Papers.push_back(paper);
        }
        made.Papers[0].Id = 9;
        NumberMedia(made);
        made.DefaultPaper = made.Papers[1].Id;
        return made;
    };
    MediaNumbers numbers;
    CupsMedia first = media("om_eerste_1x1mm");
    CupsMedia second = media("om_tweede_1x1mm");
    CupsMedia again = media("om_eerste_1x1mm");
    KeepNumbers(first, numbers);
    KeepNumbers(second, numbers);
    KeepNumbers(again, numbers);
    EXPECT_EQ(first.Papers[0].Id, 9);
    EXPECT_EQ(first.Papers[1].Id, 257);
    EXPECT_EQ(second.Papers[1].Id, 258);
    EXPECT_EQ(second.DefaultPaper, 258);
    EXPECT_EQ(again.Papers[1].Id, 257);
}

} // namespace
} // namespace platform::qt
