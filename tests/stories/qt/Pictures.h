#pragma once

#include <string>

#include <QString>
#include <QWidget>

namespace scenario {

/// Takes pictures of windows, to files in the current folder.
class Pictures {
  public:
    /// `suffix` stands behind each name, before the ending.
    explicit Pictures(QString suffix) : suffix_(std::move(suffix)) {}

    /// The window, with the menu that is open over it. ScriptError if the file cannot be written.
    void Take(QWidget& window, const std::string& name);

    /// The name of the picture of the window that comes next. ScriptError if one before it never came.
    void Next(const std::string& name);
    /// Takes that picture, if there is to be one.
    void TakeNext(QWidget& window);

  private:
    bool Save(QWidget& window, const std::string& name);

    QString suffix_;
    std::string next_;
    std::string failed_;
};

} // namespace scenario
