#include "precheck/FindingsReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace precheck {

namespace {

Findings Two() {
    return {{.Code = "count.too-few",
             .Gravity = Gravity::Spoils,
             .Subject = Subject::Count,
             .Spot = Spot::Count,
             .Wrong = "Het aantal is 5.",
             .Mend = "Vul 250 in.",
             .Sketch = {}},
            {.Code = "creditor.letters",
             .Gravity = Gravity::LookAt,
             .Subject = Subject::Creditor,
             .Spot = Spot::CreditorName,
             .Wrong = "In \"Één\\\x01\xff\" staat een teken.",
             .Mend = "Zonder.",
             .Sketch = {}}};
}

} // namespace

TEST(FindingsReportTest, TheTextHasAHeadingAndAParagraphForEachFinding) {
    EXPECT_EQ(ReportText(Two()), "Voorcontrole van de testpartij: 2 punten vragen uw aandacht.\n"
                                 "\n"
                                 "1. Fout (count.too-few)\n"
                                 "   Het aantal is 5.\n"
                                 "   Vul 250 in.\n"
                                 "\n"
                                 "2. Let op (creditor.letters)\n"
                                 "   In \"Één\\\x01\xff\" staat een teken.\n"
                                 "   Zonder.\n");
}

TEST(FindingsReportTest, OneFindingIsToldInTheSingularAndNoneAsNone) {
    Findings one = Two();
    one.pop_back();
    EXPECT_EQ(ReportText(one).substr(0, 59), "Voorcontrole van de testpartij: 1 punt vraagt uw aandacht.\n");
    EXPECT_EQ(ReportText({}), "Voorcontrole van de testpartij: er is niets gevonden.\n");
}

TEST(FindingsReportTest, JsonEscapesWhatAnyTextMayHold) {
    EXPECT_EQ(ReportJson({}), "{\"findings\":[]}\n");
    EXPECT_EQ(ReportJson(Two()), "{\"findings\":[\n"
                                 R"({"code":"count.too-few","gravity":"spoils","subject":"count",)"
                                 R"("wrong":"Het aantal is 5.","mend":"Vul 250 in."},)"
                                 "\n"
                                 R"({"code":"creditor.letters","gravity":"look-at","subject":"creditor",)"
                                 R"("wrong":"In \"Één\\)"
                                 "\\u0001\xEF\xBF\xBD"
                                 R"(\" staat een teken.","mend":"Zonder."}]})"
                                 "\n");
}

TEST(FindingsReportTest, JsonHasEachTextThatStandsWrong) {
    Findings findings = Two();
    findings.pop_back();
    findings[0].Texts = {{"het bedrag", 3.2549}, {"de \"BIC\"", 12}};
    EXPECT_THAT(
        ReportJson(findings),
        testing::HasSubstr("\"mend\":\"Vul 250 in.\",\"texts\":[{\"name\":\"het bedrag\",\"mm\":3.25},"
                           "{\"name\":\"de \\\"BIC\\\"\",\"mm\":12}]}"));
}

TEST(FindingsReportTest, TheStatusIsThatOfTheWorst) {
    Findings findings = Two();
    EXPECT_EQ(ReportStatus(findings), 2);
    findings.erase(findings.begin());
    EXPECT_EQ(ReportStatus(findings), 1);
    EXPECT_EQ(ReportStatus({}), 0);
}

} // namespace precheck
