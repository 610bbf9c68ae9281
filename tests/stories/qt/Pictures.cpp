#include "Pictures.h"

#include <utility>

#include <QApplication>
#include <QPainter>
#include <QPixmap>

#include "ScriptError.h"

namespace scenario {

bool Pictures::Save(QWidget& window, const std::string& name) {
    QPixmap picture = window.grab();
    if (QWidget* menu = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(window.mapFromGlobal(menu->pos()), menu->grab());
    }
    return picture.save(QString::fromStdString(name) + suffix_ + QStringLiteral(".png"));
}

void Pictures::Take(QWidget& window, const std::string& name) {
    if (!Save(window, name)) {
        throw ScriptError("cannot write the picture " + name);
    }
}

void Pictures::Next(const std::string& name) {
    if (!next_.empty()) {
        throw ScriptError("no window came for the picture " + next_);
    }
    if (!failed_.empty()) {
        throw ScriptError("cannot write the picture " + failed_);
    }
    next_ = name;
}

// From within the toolkit, where no exception may pass: a failure is told with the next name.
void Pictures::TakeNext(QWidget& window) {
    const std::string name = std::exchange(next_, {});
    if (!name.empty() && !Save(window, name)) {
        failed_ = name;
    }
}

} // namespace scenario
