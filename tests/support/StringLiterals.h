#pragma once

#include <QDirIterator>
#include <QFile>
#include <QString>

#include <vector>

/// A string literal of a C++ source, without its quotation marks.
struct StringLiteral
{
    QString file; ///< its path within the project
    int line = 0;
    QString text;

    QString place() const { return QStringLiteral("%1:%2").arg(file).arg(line); }
};

/// Adds the string literals of one line. Raw literals and comments of several lines are not supported.
inline void addLiteralsOf(const QString &source, const QString &file, int line,
                          std::vector<StringLiteral> &literals)
{
    const QChar escape = QLatin1Char('\\');
    for (int i = 0; i < source.size(); ++i) {
        const QChar quote = source.at(i);
        if (source.midRef(i, 2) == QLatin1String("//")) {
            return;
        }
        const bool isSeparator = quote == QLatin1Char('\'') && i > 0 && source.at(i - 1).isDigit();
        if ((quote != QLatin1Char('"') && quote != QLatin1Char('\'')) || isSeparator) {
            continue;
        }
        int end = i + 1;
        while (end < source.size() && source.at(end) != quote) {
            end += source.at(end) == escape ? 2 : 1;
        }
        if (quote == QLatin1Char('"')) {
            literals.push_back({file, line, source.mid(i + 1, end - i - 1)});
        }
        i = end;
    }
}

/// The string literals of all C++ sources in folders of the project.
inline std::vector<StringLiteral> stringLiteralsIn(const QStringList &folders)
{
    const QString project = QStringLiteral(TOBRIX_SOURCE_DIR "/");
    std::vector<StringLiteral> literals;
    for (const auto &folder : folders) {
        QDirIterator files(project + folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly)) {
                continue;
            }
            const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
            for (int i = 0; i < lines.size(); ++i) {
                addLiteralsOf(lines.at(i), file.fileName().mid(project.size()), i + 1, literals);
            }
        }
    }
    return literals;
}
