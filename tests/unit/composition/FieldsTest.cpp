#include <set>

#include "CompositionTest.h"
#include "composition/CalibrationReport.h"
#include "composition/FormField.h"
#include "composition/NameList.h"
#include "composition/TestFormRun.h"

namespace composition {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;

/// A surface that keeps what it is told, beside drawing on the printer.
class ToldSurface final : public PrintSurface {
  public:
    explicit ToldSurface(support::FakePrinter& printer) : PrintSurface(printer.Drawing), printer_(printer) {}

    struct Told {
        std::string Name;
        state::CalibratedBlock Block;
        std::string Whole;
        std::string Drawn;
    };
    std::vector<std::int16_t> Places;
    std::vector<Told> Fields;

    void BeginForm(std::int16_t positie) override { Places.push_back(positie); }
    void BeginField(const FormField& field, std::string_view tekst) override {
        Collect();
        Fields.push_back({std::string(field.Name), field.Block, std::string(tekst), {}});
        from_ = printer_.canvas.texts.size();
    }
    /// Puts what has been drawn since with the field that was told last.
    void Collect() {
        for (; from_ < printer_.canvas.texts.size(); ++from_) {
            ASSERT_FALSE(Fields.empty()) << "drawn without a field: " << printer_.canvas.texts[from_].text;
            Fields.back().Drawn += printer_.canvas.texts[from_].text;
        }
    }

  protected:
    machine::Canvas& Page() override { return printer_.canvas; }

  private:
    support::FakePrinter& printer_;
    std::size_t from_ = 0;
};

class FieldsTest : public CompositionTest {
  protected:
    FieldsTest() {
        state.Surface = &told;
        state.GMUContractVorm = 32;
        state.GMUServiceNr = "4711";
    }

    std::vector<ToldSurface::Told> Run(std::int32_t aantal) {
        TestFormRun(state, services, host, {}).Print(aantal, 1);
        told.Collect();
        return told.Fields;
    }

    ToldSurface told{printer};
};

TEST_F(FieldsTest, EachTextOfAFormBelongsToAFieldOfItsOwn) {
    for (const std::int16_t type : Numbers{1, 2, 3}) {
        for (const bool traffic : {true, false}) {
            state.AcceptgiroType = type;
            state.GMUVerkeer = traffic;
            told.Fields.clear();
            std::set<std::string> drawn;
            for (const ToldSurface::Told& field : Run(1)) {
                if (!field.Drawn.empty()) {
                    EXPECT_FALSE(field.Name.empty()) << field.Drawn;
                    EXPECT_TRUE(drawn.insert(field.Name).second) << field.Name;
                    EXPECT_EQ(field.Drawn, field.Whole);
                }
            }
            EXPECT_GT(drawn.size(), 15U);
        }
    }
}

TEST_F(FieldsTest, FormsAreToldByTheirPlaces) {
    Run(4);
    EXPECT_THAT(told.Places, ElementsAre(1, 2, 3, 1));
    told.Places.clear();
    state.AcceptgiroType = 3;
    Run(2);
    EXPECT_THAT(told.Places, ElementsAre(4, 4));
}

TEST_F(FieldsTest, ATextThatIsCutIsToldWhole) {
    state.IncassantBegunstigde = "Stichting Tot Behoud Van Lange Namen";
    const std::vector<ToldSurface::Told> fields = Run(1);
    const auto name = std::find_if(fields.begin(), fields.end(), [](const ToldSurface::Told& field) {
        return field.Name == "de naam van de incassant op de souche";
    });
    ASSERT_NE(name, fields.end());
    EXPECT_EQ(name->Whole, state.IncassantBegunstigde);
    EXPECT_LT(name->Drawn.size(), name->Whole.size());
    EXPECT_EQ(name->Block, state::CalibratedBlock::CreditorOnStub);
}

TEST_F(FieldsTest, TheOcrLineHasACalibrationOfItsOwn) {
    int fields = 0;
    for (const ToldSurface::Told& field : Run(1)) {
        const bool inLine = field.Name.find("OCR-regel") != std::string::npos;
        EXPECT_EQ(field.Block == state::CalibratedBlock::OcrLine, inLine) << field.Name;
        fields += inLine ? 1 : 0;
    }
    EXPECT_EQ(fields, 6);
}

TEST_F(FieldsTest, EachTextOfAListBelongsToAField) {
    PrintNameList(state);
    PrintCalibrationReport(state, services.Locale);
    told.Collect();
    EXPECT_THAT(told.Fields, Each(testing::Field(&ToldSurface::Told::Name, Not(testing::IsEmpty()))));
    EXPECT_THAT(told.Fields,
                Contains(testing::Field(&ToldSurface::Told::Name, "de kolom Woonplaats van de namenlijst")));
    EXPECT_THAT(told.Fields, Contains(testing::Field(&ToldSurface::Told::Name, "OCR regel")));
}

} // namespace composition
