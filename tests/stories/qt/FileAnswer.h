#pragma once

#include <functional>

#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace scenario {

/// Answers the window that asks for the name of a file.
class FileAnswer {
  public:
    /// `seen` looks at the window before it is answered.
    explicit FileAnswer(std::function<void(QWidget&)> seen);

    /// The name that the next window is answered with, from the current folder on.
    void Next(const QString& file);

  private:
    void Answer();

    std::function<void(QWidget&)> seen_;
    QString file_;
    QTimer look_;
};

} // namespace scenario
