// Labels: a text that its place has no room for, seen or not yet, and what the first one costs.
#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QSignalSpy>

#include "desktop/qt/Fonts.h"
#include "desktop/qt/TextRoom.h"
#include "unit/desktop/qt/SampleTest.h"

namespace {

using desktop::qt::HasAmpleRoom;

const std::string Long = "Derde verdieping, naast de lift, sleutel bij de receptie";

class LabelTest : public SampleTest {
  protected:
    QLabel* Shown() { return Widget<QLabel>("AccountLabel"); }
};

TEST_F(LabelTest, TextThatIsTooLongIsCutAndToldWhole) {
    form.AccountLabel.SetCaption(Long);
    EXPECT_TRUE(Shown()->text().endsWith(QChar(0x2026)));
    EXPECT_EQ(Shown()->toolTip().toStdString(), Long);
    form.AccountLabel.SetCaption("Kort");
    EXPECT_EQ(Shown()->text(), "Kort");
    EXPECT_EQ(Shown()->toolTip(), "");
}

TEST_F(LabelTest, TextThatNobodySeesYetIsCutWhenItComesOnShow) {
    form.AccountLabel.SetVisible(false);
    form.AccountLabel.SetCaption(Long);
    form.AccountLabel.SetVisible(true);
    EXPECT_TRUE(Shown()->text().endsWith(QChar(0x2026)));
    EXPECT_EQ(Shown()->toolTip().toStdString(), Long);
}

TEST_F(LabelTest, TextIsCutInAWindowThatComesOnShowWithIt) {
    SampleForm second(session, "Tweede");
    second.AccountLabel.SetCaption(Long);
    second.Show();
    window::Settle();
    auto* label = window::Find<QLabel>("Tweede", "AccountLabel");
    EXPECT_TRUE(label->text().endsWith(QChar(0x2026)));
    second.Unload();
}

TEST_F(LabelTest, TextFollowsTheRoomThatItHas) {
    form.AccountLabel.SetCaption(Long);
    form.AccountLabel.SetVisible(false);
    form.AccountLabel.Move(120, 570, 5800, 480);
    form.AccountLabel.SetVisible(true);
    EXPECT_EQ(Shown()->text().toStdString(), Long);
    form.AccountLabel.Move(120, 570, 1200, 240);
    EXPECT_TRUE(Shown()->text().endsWith(QChar(0x2026)));
}

// The bold face that comes with the fonts of Wine has the outlines of the plain one, further apart.
TEST_F(LabelTest, BoldIsBoldInTheFontOfTheForms) {
    const auto darkness = [this](bool bold) {
        form.AccountLabel.SetFont({.Name = "Tahoma", .Size = 12, .Bold = bold});
        form.AccountLabel.SetCaption("Illi");
        const QImage picture = Shown()->grab().toImage();
        double dark = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                dark += qGray(picture.pixel(0, 0)) - qGray(picture.pixel(x, y));
            }
        }
        return dark;
    };
    const double plain = darkness(false);
    EXPECT_GT(plain, 0);
    EXPECT_GT(darkness(true), 1.5 * plain);
}

// What the characters' widths promise must hold in the lines that the toolkit lays out.
TEST(TextRoomTest, IsAmpleOnlyForATextThatFits) {
    const QStringList texts = {
        QString(),
        QStringLiteral("Kort"),
        QStringLiteral("   "),
        QStringLiteral("AVAVAVAV ToToTo WAWAWA ffi ffl"),
        QString::fromStdString(Long),
        QStringLiteral("een achterstallige-verzekeringsmaatschappijvergoeding (ge\u00EFnd) per 1 mei "),
        QStringLiteral(
            "Voor de productie wordt gebruik gemaakt van de instellingen zoals deze zijn ingesteld. "),
        QString(60, u'i') + u' ' + QString(60, u'W'),
    };
    int ample = 0;
    for (const double points : {7.0, 9.0, 12.0, 20.0}) {
        for (const bool bold : {false, true}) {
            QFont font = QApplication::font();
            font.setPointSizeF(points);
            font.setBold(bold);
            const QFontMetrics metrics(font);
            for (const QString& text : texts) {
                for (int width = -10; width < 900; width += 7) {
                    for (int lines = -1; lines < 5; ++lines) {
                        const QSize box(width, lines * (metrics.lineSpacing() + 1));
                        if (HasAmpleRoom(text, QFontMetricsF(font), box)) {
                            ++ample;
                            const QRect taken = metrics.boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX),
                                                                     Qt::TextWordWrap, text);
                            ASSERT_LE(taken.height(), box.height())
                                << text.toStdString() << " in " << width << " dots at " << points;
                        }
                    }
                }
            }
        }
    }
    EXPECT_GT(ample, 0);
}

TEST(TextRoomTest, IsNotToldOfATextWhoseCharactersDoNotStandForThemselves) {
    const QSize box(1000, 1000);
    const QFontMetricsF metrics(QApplication::font());
    EXPECT_TRUE(HasAmpleRoom(QStringLiteral("twee regels"), metrics, box));
    for (const char16_t sign : {u'\n', u'\t', u'\u00A0', u'\u00AD', u'\u2028', u'\u0645', char16_t{0xD83D}}) {
        EXPECT_FALSE(
            HasAmpleRoom(QStringLiteral("twee") + QChar(sign) + QStringLiteral("regels"), metrics, box));
    }
}

// A font that is added makes the toolkit forget those that it has loaded, and all texts are measured anew.
TEST(FontsTest, AreAllThereBeforeTheFirstWindow) {
    const QSignalSpy added(qApp, &QGuiApplication::fontDatabaseChanged);
    desktop::qt::ResolveFamily("Tahoma");
    desktop::qt::ResolveFamily("OCR-B");
    EXPECT_EQ(added.count(), 0);
}

} // namespace
