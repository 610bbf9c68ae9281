#include "print/pdf/PdfReader.h"

#include <algorithm>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace pdf {

namespace {

constexpr double MillimetresPerPoint = 25.4 / 72;
constexpr double MillimetresPerInch = 25.4;

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

QString Unescaped(QString text) {
    return text.replace("&lt;", "<").replace("&gt;", ">").replace("&quot;", "\"").replace("&amp;", "&");
}

} // namespace

std::vector<Word> Words(const QString& file) {
    static const QRegularExpression line(
        R"re(<(page) |<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">(.*?)</word>)re");
    std::vector<Word> words;
    int page = 0;
    auto matches = line.globalMatch(QString::fromUtf8(Run("pdftotext", {"-bbox", file, "-"})));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (!match.captured(1).isEmpty()) {
            ++page;
            continue;
        }
        const auto millimetres = [&match](int group) {
            return match.captured(group).toDouble() * MillimetresPerPoint;
        };
        words.push_back({page, Unescaped(match.captured(6)).toStdString(), millimetres(2), millimetres(3),
                         millimetres(4), millimetres(5)});
    }
    return words;
}

std::vector<Font> Fonts(const QString& file) {
    std::vector<Font> fonts;
    const QStringList lines = QString::fromUtf8(Run("pdffonts", {file})).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.mid(2)) { // behind the heading and its rule
        const QStringList columns = line.split(' ', Qt::SkipEmptyParts);
        fonts.push_back({columns.front().toStdString(), columns.at(columns.size() - 5) == "yes"});
    }
    return fonts;
}

std::string Text(const QString& file) {
    return Run("pdftotext", {"-raw", file, "-"}).toStdString();
}

std::optional<std::string> TextByMuPdf(const QString& file) {
    const QString python = "/usr/bin/python3"; // the packaged library belongs to the packaged Python
    const QString script = "import fitz, sys\n"
                           "for page in fitz.open(sys.argv[1]): sys.stdout.write(page.get_text())";
    QProcess process;
    process.start(python, {"-c", "import fitz"});
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        return std::nullopt;
    }
    return Run(python, {"-c", script, file}).toStdString();
}

std::vector<std::string> CharacterTables(const QString& file) {
    QFile document(file);
    EXPECT_TRUE(document.open(QIODevice::ReadOnly));
    const QByteArray bytes = document.readAll();
    std::vector<std::string> tables;
    for (qsizetype at = 0; (at = bytes.indexOf("begincmap", at)) >= 0;) {
        const qsizetype end = bytes.indexOf("endcmap", at);
        tables.push_back(bytes.mid(at, end - at).toStdString());
        at = end;
    }
    return tables;
}

std::string Info(const QString& file, const std::string& name) {
    for (const QByteArray& line : Run("pdfinfo", {file}).split('\n')) {
        if (line.startsWith((name + ":").c_str())) {
            return line.mid(static_cast<qsizetype>(name.size()) + 1).trimmed().toStdString();
        }
    }
    return "";
}

QImage Corner(const QString& file, int page, int dotsPerInch, double side) {
    const QTemporaryDir folder;
    const QString number = QString::number(page);
    const QString dots = QString::number(static_cast<int>(side / MillimetresPerInch * dotsPerInch));
    Run("pdftoppm", {"-png", "-singlefile", "-r", QString::number(dotsPerInch), "-x", "0", "-y", "0", "-W",
                     dots, "-H", dots, "-f", number, "-l", number, file, folder.filePath("page")});
    return QImage(folder.filePath("page.png"));
}

Box Ink(const QImage& picture, int dotsPerInch) {
    int left = picture.width();
    int top = picture.height();
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 128) {
                left = std::min(left, x);
                right = std::max(right, x + 1);
                top = std::min(top, y);
                bottom = std::max(bottom, y + 1);
            }
        }
    }
    const double scale = MillimetresPerInch / dotsPerInch;
    return {left * scale, top * scale, right * scale, bottom * scale};
}

} // namespace pdf
