#include "PrecheckTest.h"

namespace precheck {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class CalibrationCheckTest : public PrecheckTest {
  protected:
    void Fill(const std::string& text) {
        for (const auto& block : state::CalibrationBlocks(state)) {
            std::fill(block.X.begin(), block.X.end(), text);
            std::fill(block.Y.begin(), block.Y.end(), text);
        }
    }

    /// How bad a value is that is no number, by the name of its key.
    Gravity GravityOf(const std::string& key) {
        for (const Finding& finding : Settings()) {
            if (finding.Wrong.find(' ' + key + ' ') != std::string::npos) {
                return finding.Gravity;
            }
        }
        ADD_FAILURE() << "nothing is said of " << key;
        return Gravity::LookAt;
    }
};

TEST_F(CalibrationCheckTest, NumbersInEveryFormAreTaken) {
    for (const char* text : {"", " ", "0", "-0,06", "+1,5", " 1,25 ", ",5", "3,"}) {
        Fill(text);
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << '"' << text << '"';
    }
}

TEST_F(CalibrationCheckTest, EachOfThe56ValuesIsLookedAt) {
    Fill("x");
    const Findings findings = Settings();
    EXPECT_THAT(findings, SizeIs(56));
    EXPECT_THAT(findings, Each(Field(&Finding::Code, "calibration.no-number")));
}

TEST_F(CalibrationCheckTest, WhatIsNoNumberIsToldAsItStands) {
    for (const char* text : {"1 mm", "1,5,0", "--1", "1e1", "een & twee"}) {
        state.AcceptGiroTop[1] = text;
        const Finding finding = First(Settings(), "calibration.no-number");
        EXPECT_THAT(finding.Wrong,
                    HasSubstr("AcceptGiroTop1 (Integrale acceptgiro (behalve OCR-regel), middelste "
                              "formulier)"));
        EXPECT_THAT(finding.Wrong, HasSubstr('"' + std::string(text) + '"'));
        EXPECT_THAT(finding.Mend, HasSubstr("aantal millimeters"));
    }
}

TEST_F(CalibrationCheckTest, APointIsToldApartFromAComma) {
    state.OCRLinks[0] = " -1.50";
    EXPECT_THAT(First(Settings(), "calibration.no-number").Mend, HasSubstr("\"-1,50\""));
}

TEST_F(CalibrationCheckTest, ALocaleWithoutACommaIsToldOnce) {
    memory.locale.SetDecimalMark('.');
    EXPECT_THAT(Codes(Settings()), ElementsAre("locale.no-comma"));
    Fill("1.5");
    EXPECT_THAT(Codes(Settings()), IsEmpty());
    Fill("2");
    EXPECT_THAT(Codes(Settings()), IsEmpty());
    state.AcceptGiroNAWTop[1] = "0,3";
    EXPECT_THAT(First(Settings(), "locale.no-comma").Wrong,
                HasSubstr("AcceptGiroNAWTop1 = \"0,3\". Deze waarde verschuift"));
    state.AcceptGiroNAWTop[1] = "x";
    EXPECT_THAT(Codes(Settings()), ElementsAre("calibration.no-number"));
}

TEST_F(CalibrationCheckTest, ALocaleWithoutACommaSpoilsNothingThatIsNotPrinted) {
    memory.locale.SetDecimalMark('.');
    Fill("");
    state.OCRTop[3] = "0,3"; // of the form under a letter
    EXPECT_EQ(First(Settings(), "locale.no-comma").Gravity, Gravity::LookAt);
    state.OCRTop[0] = "0,3";
    EXPECT_EQ(First(Settings(), "locale.no-comma").Gravity, Gravity::Spoils);
}

TEST_F(CalibrationCheckTest, OnlyThePlacesOfTheStationerySpoil) {
    Fill("x");
    EXPECT_EQ(GravityOf("OCRTop0"), Gravity::Spoils);
    EXPECT_EQ(GravityOf("OCRTop2"), Gravity::Spoils);
    EXPECT_EQ(GravityOf("OCRTop3"), Gravity::LookAt);
    state.AcceptgiroType = 3;
    EXPECT_EQ(GravityOf("OCRTop0"), Gravity::LookAt);
    EXPECT_EQ(GravityOf("OCRTop3"), Gravity::Spoils);
}

TEST_F(CalibrationCheckTest, OnlyBlocksThatArePrintedSpoil) {
    Fill("x");
    EXPECT_EQ(GravityOf("AcceptGiroBGAcceptLinks0"), Gravity::Spoils);
    EXPECT_EQ(GravityOf("AcceptGiroBGAcceptTop0"), Gravity::LookAt); // moves nothing
    EXPECT_EQ(GravityOf("AcceptGiroBGSoucheTop0"), Gravity::Spoils);
    state.GMUContractVorm = 33; // the creditor is on the stationery
    EXPECT_EQ(GravityOf("AcceptGiroBGAcceptLinks0"), Gravity::LookAt);
    EXPECT_EQ(GravityOf("AcceptGiroBGSoucheTop0"), Gravity::LookAt);
    EXPECT_EQ(GravityOf("OCRLinks1"), Gravity::Spoils);
    state.GMUContractVorm = 1; // no OCR line
    EXPECT_EQ(GravityOf("OCRLinks1"), Gravity::LookAt);
    EXPECT_EQ(GravityOf("AcceptGiroBKAcceptLinks1"), Gravity::LookAt);
    EXPECT_EQ(GravityOf("AcceptGiroNAWTop1"), Gravity::Spoils);
    EXPECT_EQ(GravityOf("AcceptGiroLinks1"), Gravity::Spoils);
}

TEST_F(CalibrationCheckTest, AnyTextAtAllIsTaken) {
    for (const std::string& text : {std::string(30000, '9'), std::string(30000, 'x'),
                                    std::string("1\0"
                                                "2",
                                                3),
                                    std::string("\xFF\xFE&%1")}) {
        Fill(text);
        EXPECT_THAT(Settings(), SizeIs(56));
        EXPECT_THAT(Document(), IsEmpty());
    }
}

} // namespace precheck
