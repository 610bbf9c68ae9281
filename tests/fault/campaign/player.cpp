// Loaded into the program as it is installed (LD_PRELOAD), plays a user who prints one document on a queue
// and one as a PDF, and goes on whatever is told. Each message goes to standard output, and each step that
// could not be taken.
//
// CAMPAIGN_PDF is the file for the PDF; CAMPAIGN_TRAY the tray of the queue.
#include <chrono>
#include <cstdio>
#include <deque>
#include <functional>
#include <string>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTimer>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int RhythmMs = 2;
constexpr std::chrono::seconds Patience{8}; // a silent print server is waited for

constexpr const char* Wizard = "frmMain";
constexpr const char* Manager = "frmPrintManager";
constexpr int CalibrationReport = 2;

void Say(const char* kind, const QString& text) {
    QString line = text;
    line.replace(u'\n', QStringLiteral(" / ")).remove(u'\r');
    std::printf("%s\t%s\n", kind, line.toUtf8().constData());
    std::fflush(stdout);
}

QWidget* WindowOf(const char* form) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String(form) && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

/// A control that a user could reach now.
template <class Widget>
Widget* Reachable(const char* form, const char* control) {
    QWidget* window = WindowOf(form);
    auto* widget = window == nullptr ? nullptr : window->findChild<Widget*>(QLatin1String(control));
    QWidget* modal = QApplication::activeModalWidget();
    const bool isFree = widget != nullptr && widget->isVisible() && widget->isEnabled();
    return isFree && (modal == nullptr || modal == window) ? widget : nullptr;
}

class User : public QObject {
  public:
    User() {
        GoToTheLastPage();
        Print("Kantoor", qgetenv("CAMPAIGN_TRAY"));
        Print("PDF-bestand", "");
        Step("close", [] {
            QWidget* wizard = QApplication::activeModalWidget() == nullptr ? WindowOf(Wizard) : nullptr;
            return wizard != nullptr && wizard->close();
        });
        Later();
    }

  private:
    struct Waiting {
        const char* What;
        std::function<bool()> Try;
    };

    void Step(const char* what, std::function<bool()> tried) { steps_.push_back({what, std::move(tried)}); }

    void Click(const char* form, const char* control) {
        Step(control, [form, control] {
            auto* button = Reachable<QAbstractButton>(form, control);
            if (button != nullptr) { // later: the command may open a window and last as long as that
                QTimer::singleShot(0, button, &QAbstractButton::click);
            }
            return button != nullptr;
        });
    }

    void GoToTheLastPage() {
        for (const char* control : {"Verder", "optProcedure(0)", "Verder", "optTestpartij(0)", "Verder"}) {
            Click(Wizard, control);
        }
    }

    /// Nothing is picked where the list does not have it.
    void Pick(const char* control, const QString& entry) {
        Step(control, [control, entry] {
            auto* box = Reachable<QComboBox>(Manager, control);
            if (box == nullptr) {
                return false;
            }
            const int index = box->findText(entry);
            Say(index < 0 ? "missing" : "picked", entry);
            if (index >= 0) {
                box->setCurrentIndex(index);
                emit box->activated(index);
            }
            return true;
        });
    }

    void Print(const QString& printer, const QString& tray) {
        Click(Wizard, "cmdPrinten");
        Step("the next printer", [this, printer] {
            printer_ = printer;
            opened_ = {};
            return true;
        });
        Pick("cboPrinterSelect(0)", printer);
        // Again where it did not open: the printer may not have answered.
        Step("cmdDetails", [this] {
            if (Reachable<QComboBox>(Manager, "cboPrinterSelect(2)") != nullptr) {
                return true;
            }
            auto* details = Reachable<QAbstractButton>(Manager, "cmdDetails");
            if (details != nullptr && !isOpening_ &&
                Clock::now() - opened_ > std::chrono::milliseconds(300)) {
                if (opened_ != Clock::time_point()) {
                    Say("unreachable", printer_);
                }
                isOpening_ = true;
                details->click();
                isOpening_ = false;
                opened_ = Clock::now();
            }
            return false;
        });
        if (!tray.isEmpty()) {
            Pick("cboPrinterSelect(2)", tray);
        }
        Step("lstAfdrukken", [] {
            auto* list = Reachable<QListWidget>(Manager, "lstAfdrukken");
            if (list == nullptr || list->count() <= CalibrationReport) {
                return false;
            }
            list->setCurrentRow(CalibrationReport);
            return true;
        });
        Click(Manager, "cmdPrint");
        // After a failure the manager may stay, or the click may have come while it was busy.
        Step("the end of the print", [this] {
            auto* cancel = Reachable<QAbstractButton>(Manager, "cmdAnnuleren");
            if (cancel != nullptr && Clock::now() - since_ > std::chrono::seconds(1)) {
                cancel->click();
            }
            return WindowOf(Manager) == nullptr && Reachable<QWidget>(Wizard, "cmdPrinten") != nullptr;
        });
    }

    void Later() {
        QTimer::singleShot(RhythmMs, this, [this] { Next(); });
    }

    bool AnswerWindow() {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal); box != nullptr && box->isVisible()) {
            QAbstractButton* yes = box->button(QMessageBox::Yes);
            Say(yes != nullptr ? "question" : "message", box->text());
            (yes != nullptr ? yes : box->buttons().constFirst())->click();
            return true;
        }
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        auto* name = dialog == nullptr || !dialog->isVisible()
                         ? nullptr
                         : dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (name != nullptr) {
            name->setText(qEnvironmentVariable("CAMPAIGN_PDF"));
            static_cast<QDialog*>(dialog)->accept();
        }
        return name != nullptr;
    }

    void Next() {
        Later(); // first: what follows may open a window and last as long as that
        if (AnswerWindow() || steps_.empty()) {
            since_ = Clock::now();
            return;
        }
        const Waiting step = steps_.front();
        const std::size_t left = steps_.size();
        if (step.Try() && steps_.size() == left) {
            steps_.pop_front();
            since_ = Clock::now();
        } else if (Clock::now() - since_ > Patience) {
            QWidget* modal = QApplication::activeModalWidget();
            Say("stuck",
                QStringLiteral("%1 in %2").arg(step.What, modal == nullptr ? "" : modal->objectName()));
            std::_Exit(3);
        }
    }

    std::deque<Waiting> steps_;
    Clock::time_point since_ = Clock::now();
    bool isOpening_ = false;   // the command yields, and the steps go on inside it
    Clock::time_point opened_; // tried last for this printer
    QString printer_;
};

void Play() {
    QTimer::singleShot(0, qApp, [] { new User; });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Play)
