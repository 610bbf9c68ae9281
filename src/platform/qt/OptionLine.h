#pragma once

#include <QByteArray>

#include <map>
#include <string>

namespace platform::qt {

/// Finds a queue's line ("Dest name options" or "Default name options") in the text of an lpoptions file; the
/// last one where there are several. An instance ("name/instance") is not the queue.
class OptionLine {
  public:
    OptionLine(const QByteArray& text, const std::string& queue);

    bool Exists() const { return begin_ >= 0; }
    /// With its line end.
    QByteArray Line() const { return Exists() ? text_.mid(begin_, size_) : QByteArray(); }
    /// The text with another line in the place of this one; a new line goes to the front.
    QByteArray Replaced(const QByteArray& line) const;

  private:
    QByteArray text_;
    qsizetype begin_ = -1;
    qsizetype size_ = 0;
};

/// The line with these options; an empty value takes the option away. What is not named stays byte for byte.
/// An empty line becomes one for the queue.
QByteArray WithOptions(const QByteArray& line, const std::string& queue,
                       const std::map<std::string, std::string>& changes);

/// The options of a line.
std::map<std::string, std::string> OptionsOf(const QByteArray& line);

/// The queue whose line in the text of an lpoptions file says that it is the default, without an instance; an
/// empty text if none does.
std::string PreferredIn(const QByteArray& text);

/// True for a line that says no more than a queue's name.
bool IsBare(const QByteArray& line);

} // namespace platform::qt
