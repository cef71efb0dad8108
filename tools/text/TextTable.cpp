#include "tools/text/TextTable.h"

#include "tools/text/DisplayText.h"

#include <algorithm>

namespace Tobrix::Tools {

namespace {

const QString gap = QStringLiteral("  ");

QString withoutTrailingBlanks(QString line)
{
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line;
}

} // namespace

TextTable::TextTable(std::vector<Column> columns) : m_columns(std::move(columns))
{
}

void TextTable::addRow(const QStringList &cells)
{
    Q_ASSERT(static_cast<std::size_t>(cells.size()) == m_columns.size());
    QStringList row;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        row.append(elided(printable(cells.at(static_cast<int>(i))), m_columns[i].maximumWidth));
    }
    m_rows.push_back(row);
}

void TextTable::addSpanningRow(const QString &text)
{
    m_rows.push_back({printable(text)});
}

QString TextTable::toString(const QString &indent, int lineWidth) const
{
    if (m_rows.empty()) {
        return QString();
    }
    auto columnWidths = widths();
    shrink(columnWidths, lineWidth - displayWidth(indent));
    QStringList titles;
    QStringList rules;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        titles.append(m_columns[i].title);
        rules.append(QString(columnWidths[i], QChar(0x2500)));
    }
    QString text;
    if (std::any_of(columnWidths.begin(), columnWidths.end(), [](int width) { return width > 0; })) {
        text += indent + line(titles, columnWidths) + QLatin1Char('\n');
        text += indent + line(rules, columnWidths) + QLatin1Char('\n');
    }
    for (const auto &row : m_rows) {
        const bool isSpanning = row.size() == 1 && m_columns.size() != 1;
        text += isSpanning ? indent + row.first() + QLatin1Char('\n') : lines(row, columnWidths, indent);
    }
    return text;
}

std::vector<int> TextTable::widths() const
{
    std::vector<int> result(m_columns.size(), 0);
    for (const auto &row : m_rows) {
        if (static_cast<std::size_t>(row.size()) != m_columns.size()) {
            continue;
        }
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            result[i] = std::max(result[i], displayWidth(row.at(static_cast<int>(i))));
        }
    }
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (result[i] > 0) {
            result[i] = std::max(result[i], displayWidth(m_columns[i].title));
        }
    }
    return result;
}

void TextTable::shrink(std::vector<int> &widths, int available) const
{
    int total = -gap.size();
    for (const int width : widths) {
        total += width > 0 ? width + gap.size() : 0;
    }
    // The widest column gives way first, cell by cell, so that the columns share what is missing.
    for (; total > available; --total) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const bool canShrink = widths[i] > std::max(m_columns[i].minimumWidth, 1);
            if (canShrink && (widest == widths.size() || widths[i] > widths[widest])) {
                widest = i;
            }
        }
        if (widest == widths.size()) {
            return;
        }
        --widths[widest];
    }
}

QString TextTable::lines(const QStringList &cells, const std::vector<int> &widths,
                         const QString &indent) const
{
    std::vector<QStringList> pieces;
    int lineCount = 1;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        pieces.push_back(wrapped(cells.at(static_cast<int>(i)), widths[i]));
        lineCount = std::max(lineCount, pieces.back().size());
    }
    QString text;
    for (int number = 0; number < lineCount; ++number) {
        QStringList lineCells;
        for (const auto &cellPieces : pieces) {
            lineCells.append(cellPieces.value(number));
        }
        text += indent + line(lineCells, widths) + QLatin1Char('\n');
    }
    return text;
}

QString TextTable::line(const QStringList &cells, const std::vector<int> &widths) const
{
    QStringList parts;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (widths[i] == 0) {
            continue;
        }
        const QString &cell = cells.at(static_cast<int>(i));
        const QString padding(widths[i] - displayWidth(cell), QLatin1Char(' '));
        parts.append(m_columns[i].alignment == Alignment::Right ? padding + cell : cell + padding);
    }
    return withoutTrailingBlanks(parts.join(gap));
}

} // namespace Tobrix::Tools
