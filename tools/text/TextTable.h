#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Tobrix::Tools {

/// A table of texts, aligned by the cells that they take on a terminal. Columns in which no row has anything
/// are left out.
class TextTable
{
public:
    enum class Alignment { Left, Right };

    struct Column
    {
        QString title;
        Alignment alignment = Alignment::Left;
        int maximumWidth = 0; ///< longer texts are cut
        int minimumWidth = 0; ///< to which the column may be narrowed where there is too little room
    };

    explicit TextTable(std::vector<Column> columns);

    /// Adds a row with one text a column.
    void addRow(const QStringList &cells);

    /// Adds a row of one text that takes the room of all columns.
    void addSpanningRow(const QString &text);

    /// The table with its titles and a rule below them; empty when there are no rows.
    /// @param indent is put before each line
    /// @param lineWidth the room for a line; wide columns are narrowed as far as they may be to keep to it,
    ///        and their texts broken into several lines
    QString toString(const QString &indent, int lineWidth) const;

private:
    std::vector<int> widths() const;
    void shrink(std::vector<int> &widths, int available) const;
    QString lines(const QStringList &cells, const std::vector<int> &widths, const QString &indent) const;
    QString line(const QStringList &cells, const std::vector<int> &widths) const;

    std::vector<Column> m_columns;
    // A spanning row has one cell only.
    std::vector<QStringList> m_rows;
};

} // namespace Tobrix::Tools
