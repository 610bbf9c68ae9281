#include "desktop/cups/CupsMedia.h"

#include <array>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/cups/CupsPpd.h"
#include "desktop/cups/IppMedia.h"
#include "support/TemporaryFolder.h"

namespace desktop::cups {
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

TEST(MediaOfQueueTest, ListsPapersAndBinsOfAQueueWithoutAPpd) {
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

    const CupsMedia media = MediaOfQueue(answer.get(), "");
    ASSERT_EQ(media.Papers.size(), 5U);
    EXPECT_EQ(media.Papers[4].Name, "Acceptgiro 210 x 304,8 mm");
    EXPECT_EQ(media.Papers[4].PwgMedia, "custom_210x304.8mm_210x304.8mm");
    EXPECT_EQ(media.Papers[4].PpdSize, "");
    EXPECT_NEAR(media.Papers[4].Left, 360, 0.1);
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
    EXPECT_EQ(media.Bins[2].Name, "Lade 19");
    EXPECT_EQ(media.DefaultBin, media.Bins[2].Id);
}

TEST(MediaOfAttributesTest, TakesNoBinForTheDefaultThatTheQueueDoesNotTell) {
    const auto presetOf = [](const std::array<const char*, 2>& sources) {
        const Answer answer(ippNew());
        AddKeywords<2>(answer, "media-source-supported", sources);
        return MediaOfAttributes(answer.get()).DefaultBin;
    };
    EXPECT_EQ(presetOf({"tray-1", "tray-2"}), 0);
    EXPECT_EQ(presetOf({"tray-1", "auto"}), 7);
}

/// A collection's members by whole numbers, or by a range of them.
struct Member {
    const char* Name;
    int Least;
    int Most;
};
void AddSizes(const Answer& answer, const char* name, const std::vector<std::vector<Member>>& sizes) {
    ipp_attribute_t* attribute = nullptr;
    for (const std::vector<Member>& size : sizes) {
        const Answer collection(ippNew());
        for (const Member& member : size) {
            if (member.Least == member.Most) {
                ippAddInteger(collection.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, member.Name, member.Least);
            } else {
                ippAddRange(collection.get(), IPP_TAG_ZERO, member.Name, member.Least, member.Most);
            }
        }
        if (attribute == nullptr) {
            attribute = ippAddCollection(answer.get(), IPP_TAG_PRINTER, name, collection.get());
        } else {
            ippSetCollection(answer.get(), &attribute, ippGetCount(attribute), collection.get());
        }
    }
}

TEST(MediaOfQueueTest, OffersTheFormsSheetWhereTheRangesOfSizesTakeIt) {
    const auto offers = [](int leastHeight, int mostHeight) {
        const Answer answer(ippNew());
        AddKeywords<1>(answer, "media-supported", {"iso_a4_210x297mm"});
        AddSizes(answer, "media-size-supported",
                 {{{"x-dimension", 21000, 21000}, {"y-dimension", 29700, 29700}},
                  {{"x-dimension", 7620, 21590}, {"y-dimension", leastHeight, mostHeight}}});
        return MediaOfQueue(answer.get(), "").Papers.size() == 2;
    };
    EXPECT_TRUE(offers(12700, 35560));
    EXPECT_TRUE(offers(12700, 30480));
    EXPECT_FALSE(offers(12700, 30479));
    EXPECT_FALSE(offers(30481, 35560));
}

TEST(MediaOfQueueTest, HasTheMarginsOfEachPaperFromTheDatabase) {
    const Answer answer(ippNew());
    AddKeywords<2>(answer, "media-supported", {"iso_a4_210x297mm", "na_legal_8.5x14in"});
    for (const char* name : {"media-col-database"}) {
        ipp_attribute_t* attribute = nullptr;
        for (const int margin : {0, 423, 300}) {
            const Answer size(ippNew());
            ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", 21000);
            ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", 29700);
            const Answer entry(ippNew());
            ippAddCollection(entry.get(), IPP_TAG_ZERO, "media-size", size.get());
            ippAddInteger(entry.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "media-left-margin", margin);
            if (attribute == nullptr) {
                attribute = ippAddCollection(answer.get(), IPP_TAG_PRINTER, name, entry.get());
            } else {
                ippSetCollection(answer.get(), &attribute, ippGetCount(attribute), entry.get());
            }
        }
    }
    const CupsMedia media = MediaOfQueue(answer.get(), "");
    ASSERT_EQ(media.Papers.size(), 2U);
    EXPECT_NEAR(media.Papers[0].Left, 239.8, 0.1);
    EXPECT_EQ(media.Papers[1].Left, 0);
}

TEST(MediaOfQueueTest, LeavesTheBinToThePrinterWhereItDoesNotTellItsOwn) {
    const Answer answer(ippNew());
    AddKeywords<1>(answer, "media-supported", {"iso_a4_210x297mm"});
    AddKeywords<2>(answer, "media-source-supported", {"tray-1", "tray-2"});
    const CupsMedia media = MediaOfQueue(answer.get(), "");
    ASSERT_EQ(media.Bins.size(), 3U);
    EXPECT_EQ(media.Bins[0].Name, "Standaardlade");
    EXPECT_TRUE(media.Bins[0].StandIn);
    EXPECT_EQ(media.DefaultBin, media.Bins[0].Id);
}

TEST(MediaOfQueueTest, OffersOneSheetAndOneBinWhereNoneIsTold) {
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

TEST(MediaOfAttributesTest, ListsNothingWhereNothingIsToldOrItIsOfAnotherKind) {
    const Answer empty(ippNew());
    EXPECT_TRUE(MediaOfAttributes(empty.get()).Papers.empty());
    const Answer odd(ippNew());
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-supported", 7);
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-col-default", 7);
    ippAddInteger(odd.get(), IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-source-supported", 7);
    EXPECT_TRUE(MediaOfAttributes(odd.get()).Papers.empty());
    EXPECT_TRUE(MediaOfAttributes(odd.get()).Bins.empty());
}

TEST(MediaOfPpdTest, ListsNothingForADamagedFile) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("damaged.ppd");
    for (const std::string& text :
         {std::string(), std::string(100'000, '*'), std::string("*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize"),
          std::string("%PDF-1.4\n\0\0\xFF", 12)}) {
        WriteFile(path, text);
        EXPECT_TRUE(MediaOfPpd(path).Papers.empty());
    }
    EXPECT_TRUE(MediaOfPpd(folder.PathOf("missing.ppd")).Papers.empty());
}

constexpr const char* PpdHead = "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*LanguageVersion: English\n"
                                "*LanguageEncoding: ISOLatin1\n*NickName: \"Proef\"\n";

struct PpdPaper {
    const char* Choice;
    const char* Sides;
};

/// A queue by a PPD with these papers, all printed on to 18 points from each edge, and with more of it.
class PpdMediaTest : public testing::Test {
  protected:
    CupsMedia Read(const std::vector<PpdPaper>& papers, const std::string& more = {},
                   const std::string& preset = "A4") {
        std::ostringstream text;
        text << PpdHead << "*OpenUI *PageSize: PickOne\n*DefaultPageSize: " << preset << "\n";
        for (const PpdPaper& paper : papers) {
            text << "*PageSize " << paper.Choice << ": \"\"\n";
        }
        text << "*CloseUI: *PageSize\n";
        for (const PpdPaper& paper : papers) {
            double width = 0;
            double height = 0;
            std::istringstream(paper.Sides) >> width >> height;
            text << "*PaperDimension " << paper.Choice << ": \"" << paper.Sides << "\"\n";
            text << "*ImageableArea " << paper.Choice << ": \"18 18 " << width - 18 << ' ' << height - 18
                 << "\"\n";
        }
        const std::string path = Folder.PathOf("queue.ppd");
        WriteFile(path, text.str() + more);
        const Answer nothing(ippNew());
        return MediaOfQueue(nothing.get(), path);
    }

    TemporaryFolder Folder;
};

constexpr const char* AnySize = "*CustomPageSize True: \"\"\n*ParamCustomPageSize Width: 1 points 100 612\n"
                                "*ParamCustomPageSize Height: 2 points 100 1008\n*HWMargins: 12 13 14 15\n"
                                "*VariablePaperSize: True\n*MaxMediaWidth: \"612\"\n"
                                "*MaxMediaHeight: \"1008\"\n";

TEST_F(PpdMediaTest, HasTheSizesOfThePpdWhateverTheNamesMeanElsewhere) {
    const CupsMedia media = Read({{"A4", "595 842"},
                                  {"Folio", "612 936"},
                                  {"Oficio", "612 900"},
                                  {"A4Extra", "669 913"},
                                  {"226x310", "640.6 878.7"},
                                  {"JISB5", "516 729"}});
    ASSERT_EQ(media.Papers.size(), 6U);
    const std::vector<SheetSize> expected = {{595, 842}, {612, 936},     {612, 900},
                                             {669, 913}, {640.6, 878.7}, {516, 729}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const Paper& paper = media.Papers[i];
        EXPECT_NEAR(paper.Width, expected[i].Width * 20, 0.1) << paper.Name;
        EXPECT_NEAR(paper.Height, expected[i].Height * 20, 0.1) << paper.Name;
        EXPECT_NEAR(paper.Left, 360, 0.1) << paper.Name;
        EXPECT_NEAR(paper.Right, 360, 0.1) << paper.Name;
    }
    EXPECT_EQ(media.Papers[0].PwgMedia, "iso_a4_210x297mm");
    EXPECT_EQ(media.Papers[0].Id, 9);
    EXPECT_EQ(media.Papers[1].PwgMedia, "Folio"); // not om_folio_210x330mm
    EXPECT_EQ(media.Papers[1].Id, 14);            // Windows means this sheet
    EXPECT_EQ(media.Papers[2].PwgMedia, "Oficio");
    EXPECT_EQ(media.Papers[4].PwgMedia, "226x310");
}

TEST_F(PpdMediaTest, HasAPaperOnceThatThePpdHasTwice) {
    EXPECT_EQ(Read({{"A4", "595 842"}, {"4x6", "288 432"}, {"4x6", "288 432"}}).Papers.size(), 2U);
}

TEST_F(PpdMediaTest, OffersTheFormsSheetWhereThePpdTakesAnySize) {
    const CupsMedia media = Read({{"A4", "595 842"}}, AnySize);
    ASSERT_EQ(media.Papers.size(), 2U);
    const Paper& sheet = media.Papers[1];
    EXPECT_EQ(sheet.Name, "Acceptgiro 210 x 304,8 mm");
    EXPECT_EQ(sheet.PpdSize, "Custom.210x304.8mm");
    EXPECT_GE(sheet.Id, 256);
    EXPECT_NEAR(sheet.Height, 17280, 0.1);
    EXPECT_NEAR(sheet.Left, 240, 0.1);
    EXPECT_NEAR(sheet.Bottom, 260, 0.1);
    EXPECT_NEAR(sheet.Right, 280, 0.1);
    EXPECT_NEAR(sheet.Top, 300, 0.1);
    EXPECT_EQ(media.DefaultPaper, 9);
}

TEST_F(PpdMediaTest, DoesNotOfferTheFormsSheetWhereItIsTooLongOrHasAName) {
    EXPECT_EQ(Read({{"A4", "595 842"}}).Papers.size(), 1U);
    const std::string lessThanTheSheet = std::regex_replace(AnySize, std::regex("1008"), "863");
    EXPECT_EQ(Read({{"A4", "595 842"}}, lessThanTheSheet).Papers.size(), 1U);
    EXPECT_EQ(Read({{"A4", "595 842"}, {"Giro", "595 864"}}, AnySize).Papers.size(), 2U);
    EXPECT_EQ(Read({{"A4", "595 842"}, {"Fanfold", "612 864"}}, AnySize).Papers.size(), 3U);
}

TEST_F(PpdMediaTest, KeepsTheSizeThatIsSetForTheQueue) {
    const CupsMedia media = Read({{"A4", "595 842"}}, AnySize, "Custom.200x300mm");
    ASSERT_EQ(media.Papers.size(), 3U);
    EXPECT_EQ(media.Papers[2].Name, "Eigen formaat 200 x 300 mm");
    EXPECT_EQ(media.DefaultPaper, media.Papers[2].Id);
}

TEST_F(PpdMediaTest, KeepsTheUsersOwnSize) {
    CupsMedia media = Read({{"A4", "595 842"}}, AnySize);
    OfferOwnSheet(media, "Custom.200x300mm");
    OfferOwnSheet(media, "Custom.200x300mm");
    OfferOwnSheet(media, "Custom.210x304.8mm"); // is there
    OfferOwnSheet(media, "Custom.900x900mm");   // the queue takes none so large
    OfferOwnSheet(media, "A4");
    ASSERT_EQ(media.Papers.size(), 3U);
    EXPECT_EQ(media.Papers[2].PpdSize, "Custom.200x300mm");
    EXPECT_NE(media.Papers[2].Id, media.Papers[1].Id);
}

TEST_F(PpdMediaTest, SaysNothingWhereThePpdKnowsNoDefault) {
    const CupsMedia media = Read({{"Letter", "612 792"}, {"A4", "595 842"}},
                                 "*OpenUI *InputSlot: PickOne\n*DefaultInputSlot: Unknown\n"
                                 "*InputSlot ByPassTray: \"\"\n*InputSlot Tray2/Kleine lade: \"\"\n"
                                 "*CloseUI: *InputSlot\n",
                                 "Unknown");
    EXPECT_EQ(media.DefaultPaper, 9);
    ASSERT_EQ(media.Bins.size(), 3U);
    EXPECT_EQ(media.Bins[0].Name, "Standaardlade");
    EXPECT_EQ(media.Bins[1].Name, "Multifunctionele lade");
    EXPECT_EQ(media.Bins[2].Name, "Kleine lade");
    EXPECT_EQ(media.DefaultBin, media.Bins[0].Id);
}

TEST_F(PpdMediaTest, HasTheOptionsThatImposeOnPagesAndNoneOfWhatIsInstalled) {
    const CupsMedia media =
        Read({{"A4", "595 842"}}, "*OpenGroup: Extra\n*OpenUI *RIWatermark/Stempel: PickOne\n"
                                  "*DefaultRIWatermark: On\n*RIWatermark Off/Uit: \"\"\n"
                                  "*RIWatermark On/Aan: \"\"\n*CloseUI: *RIWatermark\n*CloseGroup: Extra\n"
                                  "*OpenGroup: InstallableOptions\n*OpenUI *Inserter/Invoeger: PickOne\n"
                                  "*DefaultInserter: On\n*Inserter Off: \"\"\n*Inserter On: \"\"\n"
                                  "*CloseUI: *Inserter\n*CloseGroup: InstallableOptions\n");
    ASSERT_EQ(media.Imposing.size(), 1U);
    EXPECT_EQ(media.Imposing[0].Keyword, "RIWatermark");
    EXPECT_EQ(media.Imposing[0].Name, "Stempel");
    EXPECT_EQ(media.Imposing[0].Preset, "On");
    EXPECT_EQ(media.Imposing[0].Choices, (std::map<std::string, std::string>{{"On", "Aan"}}));
}

TEST_F(PpdMediaTest, HasTheResolutionWhereverThePpdTellsIt) {
    const auto dots = [this](const std::string& more) { return Read({{"A4", "595 842"}}, more).Resolution; };
    EXPECT_EQ(dots(""), "");
    EXPECT_EQ(dots("*DefaultResolution: 1200x600dpi\n"), "1200x600dpi");
    EXPECT_EQ(dots("*OpenUI *Resolution: PickOne\n*DefaultResolution: 360x180dpi\n"
                   "*Resolution 360x180dpi: \"\"\n*CloseUI: *Resolution\n"),
              "360x180dpi");
    EXPECT_EQ(dots("*OpenUI *JCLResolution: PickOne\n*DefaultJCLResolution: 300dpi\n"
                   "*JCLResolution 300dpi: \"\"\n*CloseUI: *JCLResolution\n*DefaultResolution: 600dpi\n"),
              "300dpi");
    EXPECT_EQ(dots("*OpenUI *SetResolution: PickOne\n*DefaultSetResolution: Fine\n"
                   "*SetResolution Fine: \"\"\n*CloseUI: *SetResolution\n*DefaultResolution: 600dpi\n"),
              "600dpi");
}

TEST_F(PpdMediaTest, FindsTheBinsUnderAMakersOwnName) {
    for (const std::string name : {"HPPaperSource", "PaperSources"}) {
        const CupsMedia media =
            Read({{"A4", "595 842"}}, "*OpenUI *" + name + ": PickOne\n*Default" + name + ": Unknown\n*" +
                                          name + " Unknown: \"\"\n*" + name + " Tray2: \"\"\n*" + name +
                                          " Tray2: \"\"\n*CloseUI: *" + name + "\n");
        ASSERT_EQ(media.Bins.size(), 2U);
        EXPECT_EQ(media.Bins[0].Name, "Standaardlade");
        EXPECT_TRUE(media.Bins[0].StandIn);
        EXPECT_EQ(media.DefaultBin, media.Bins[0].Id);
        EXPECT_EQ(media.Bins[1].Name, "Lade 2");
        EXPECT_EQ(media.Bins[1].PpdOption, name);
    }
}

TEST_F(PpdMediaTest, KnowsTheOptionsThatWouldChangeThePagesButNotWhatIsInstalled) {
    const auto option = [](const std::string& name, const std::vector<std::string>& choices) {
        std::string text = "*OpenUI *" + name + ": PickOne\n*Default" + name + ": " + choices.front() + "\n";
        for (const std::string& choice : choices) {
            text += "*" + name + " " + choice + ": \"\"\n";
        }
        return text + "*CloseUI: *" + name + "\n";
    };
    const CupsMedia media =
        Read({{"A4", "595 842"}},
             "*OpenGroup: InstallableOptions\n" + option("OptionDuplex", {"True", "False"}) +
                 "*CloseGroup: InstallableOptions\n" + option("EFDuplex", {"TopTop", "TopBottom", "False"}) +
                 option("Binding", {"LongEdge", "ShortEdge"}) + option("MirrorPrint", {"True", "False"}) +
                 option("ColorModel", {"Gray", "RGB"}) + option("BladZijden", {"DuplexTumble", "Simplex"}));
    EXPECT_EQ(media.PlainChoices,
              (std::map<std::string, std::string>{
                  {"BladZijden", "Simplex"}, {"EFDuplex", "False"}, {"MirrorPrint", "False"}}));
}

TEST(NumberMediaTest, StaysWithinSixteenBits) {
    CupsMedia media;
    media.Papers.resize(40'000);
    NumberMedia(media);
    for (const Paper& paper : media.Papers) {
        EXPECT_GE(paper.Id, 256);
    }
}

TEST(KeepNumbersTest, GivesANumberToOnePaperForGood) {
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
} // namespace desktop::cups
