#pragma once

#include <deque>
#include <functional>
#include <string>

#include <QObject>
#include <QString>
#include <QWidget>

/// Plays a user: steps in order, each as soon as what it waits for has come. A step may open a modal window
/// and so last until that closes; the steps after it then run inside.
class Player {
  public:
    /// Pictures go into this folder, with `suffix` behind their names.
    Player(QString folder, QString suffix);

    /// Adds a step. `ready` is asked again and again, for at most a minute.
    void Step(const std::string& what, std::function<bool()> ready, std::function<void()> act);

    // Steps that a user takes.
    void WaitForWindow(const QString& form);
    void Picture(const QString& form, const QString& name);
    void Click(const QString& form, const QString& control);
    /// The pointer comes to rest on the control.
    void Hover(const QString& form, const QString& control);
    /// A key to the window, or to the menu that is open.
    void Key(const QString& form, Qt::Key key);
    /// The user drags the window to this size, in dots.
    void Resize(const QString& form, const QSize& size);
    void Type(const QString& form, const QString& control, const QString& text);
    void PickRow(const QString& form, const QString& list, int row);
    /// The message box on show: a picture of it, and Enter.
    void AnswerMessage(const QString& pictureName);
    /// The file dialog on show: a picture of it, then this name.
    void AnswerFile(const QString& file, const QString& pictureName);
    void Close(const QString& form);

    void Start();
    /// True if every step was taken.
    bool Done() const { return failure_.empty() && steps_.empty(); }
    const std::string& Failure() const { return failure_; }

    /// Runs when a step has failed.
    std::function<void()> OnFailure;

  private:
    struct Waiting {
        std::string What;
        std::function<bool()> Ready;
        std::function<void()> Act;
    };

    void Later();
    void Next();
    void Fail(const std::string& what);
    void Save(QWidget* widget, const QString& name);

    QString folder_;
    QString suffix_;
    std::deque<Waiting> steps_;
    QObject context_; // steps end with the player
    int waited_ = 0;
    std::string failure_;
};
