// Time from the start of the process to a window that has been painted, as a whole process:
//
// first_page program|empty|texts
//
// "program" is the wizard with its first page; "empty" a window with as many plain widgets of the same kinds;
// "texts" plain widgets with the texts of the first page in their fonts, and nothing of the program.
#include <iterator>
#include <string_view>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "desktop/qt/Fonts.h"
#include "desktop/qt/QtPlatform.h"
#include "forms/Form.h"
#include "forms/Session.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

namespace {

/// Ends the process once a window has been painted.
class EndAtFirstPaint final : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return QObject::eventFilter(watched, event);
    }
};

int ShowProgram(int argc, char** argv) {
    desktop::qt::QtPlatform platform(argc, argv);
    EndAtFirstPaint end;
    qApp->installEventFilter(&end);
    state::AppState state;
    forms::Session session(platform.Services().Desktop);
    wizard::frmMain form(session, platform.Services(), state);
    session.Dispatch([&] { form.Show(); });
    platform.Run();
    return 1;
}

/// The wizard's first window has about so many of each, and is as large.
constexpr int Labels = 45;
constexpr int Boxes = 6;
constexpr int Options = 5;
constexpr int Buttons = 4;
constexpr QSize WindowSize(839, 592);
constexpr int RowHeight = 20;

/// Widgets in columns from the top of what holds them.
class Columns {
  public:
    explicit Columns(QWidget& parent) : parent_(parent) {}

    template <class Widget>
    Widget* Add(const QString& text) {
        constexpr int rows = 24;
        auto* widget = new Widget(text, &parent_);
        widget->setGeometry(10 + 220 * (placed_ / rows), 10 + RowHeight * (placed_ % rows), 200, RowHeight);
        ++placed_;
        return widget;
    }
    template <class Widget>
    void Add(const QString& text, int count) {
        for (int i = 0; i < count; ++i) {
            Add<Widget>(text);
        }
    }

  private:
    QWidget& parent_;
    int placed_ = 0;
};

int ShowEmptyWindow(int argc, char** argv) {
    const QApplication application(argc, argv);
    EndAtFirstPaint end;
    qApp->installEventFilter(&end);
    QWidget window;
    window.resize(WindowSize);
    Columns columns(window);
    for (int i = 0; i < Labels; ++i) {
        columns.Add<QLabel>(QStringLiteral("Tekst %1").arg(i));
    }
    columns.Add<QLineEdit>(QStringLiteral("Tekst"), Boxes);
    columns.Add<QRadioButton>(QStringLiteral("Keuze"), Options);
    columns.Add<QPushButton>(QStringLiteral("Knop"), Buttons);
    window.show();
    return QApplication::exec();
}

enum class Face { Plain, Bold, Heading, Sample };

struct PageText {
    const char* Text;
    Face Look = Face::Plain;
};

/// What the wizard's first page shows without settings.
constexpr PageText FirstPage[] = {
    {"Drukkeuring IBAN-acceptgiroformulieren", Face::Heading},
    {"Met dit programma kunt u IBAN-acceptgiroformulieren gaan afdrukken welke bestemd zijn voor de "
     "drukkeuring."},
    {"Voor de test zijn IBAN-Acceptgiroformulieren nodig."},
    {"Voor de productie van de testpartij wordt gebruik gemaakt van de instellingen zoals deze binnen Tarvik "
     "zijn ingesteld."},
    {"Instellingen vanuit Tarvik ( u dient een correct OCR-B font te gebruiken ):", Face::Bold},
    {"OCR-B fontnaam:"},
    {"Tahoma"},
    {"1234567890123456", Face::Sample},
    {"Ingestelde contractsoort:"},
    {"Incassant:"},
    {"Adres:"},
    {"Postcode:"},
    {"Woonplaats:"},
    {"IBAN:"},
    {"Controleer uw IBAN nummer voordat u verder gaat."},
    {"Let op:", Face::Bold},
    {"Bedragen en IBAN-banknummers worden automatisch gegenereerd."},
    {"De gebruikte persoonsgegevens zijn automatisch gegenereerd."},
    {"Klik op"},
    {"Volgende >", Face::Bold},
    {"om verder te gaan"},
};

QFont FontOf(Face look) {
    constexpr double largePoints = 12;
    QFont font = QApplication::font();
    font.setBold(look == Face::Bold || look == Face::Heading);
    if (look == Face::Heading || look == Face::Sample) {
        font.setPointSizeF(largePoints);
    }
    if (look == Face::Sample) {
        font.setFamily(QStringLiteral("Tahoma"));
    }
    return font;
}

/// The least that the toolkit needs to show the texts of the first page in their fonts, beside as many
/// controls that nobody sees.
int ShowTexts(int argc, char** argv) {
    const QApplication application(argc, argv);
    desktop::qt::LoadPackagedFonts();
    EndAtFirstPaint end;
    qApp->installEventFilter(&end);
    QWidget window;
    window.resize(WindowSize);
    int row = 0;
    for (const PageText& text : FirstPage) {
        auto* label = new QLabel(QString::fromUtf8(text.Text), &window);
        label->setFont(FontOf(text.Look));
        label->setGeometry(10, 10 + RowHeight * row++, WindowSize.width() - 20, RowHeight);
    }
    constexpr int shownBoxes = 5;
    for (int i = 0; i < shownBoxes; ++i) {
        (new QLineEdit(&window))->setGeometry(300, 10 + RowHeight * row++, 400, RowHeight);
    }
    int column = 0;
    for (const char* text : {"< &Terug", "&Volgende >", "&Sluiten"}) {
        (new QPushButton(QString::fromUtf8(text), &window))->setGeometry(400 + 140 * column++, 550, 120, 32);
    }
    auto* unseen = new QWidget(&window);
    unseen->hide();
    Columns columns(*unseen);
    columns.Add<QLabel>(QStringLiteral("Tekst"), Labels - static_cast<int>(std::size(FirstPage)));
    columns.Add<QLineEdit>(QStringLiteral("Tekst"), Boxes - shownBoxes);
    columns.Add<QRadioButton>(QStringLiteral("Keuze"), Options);
    columns.Add<QPushButton>(QStringLiteral("Knop"), Buttons - column);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const std::string_view what = argv[1];
    return what == "program" ? ShowProgram(argc, argv)
           : what == "texts" ? ShowTexts(argc, argv)
                             : ShowEmptyWindow(argc, argv);
}
