#include "tools/check/rules/Wording.h"

#include "tools/text/DisplayText.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace Tobrix::Tools {

namespace {

// Names of elements and codes are shorter than that; longer texts are not compared.
constexpr int longestName = 64;

/// The edit distance: letters inserted, deleted, replaced, or swapped with their neighbours.
int distanceBetween(const QString &a, const QString &b)
{
    const int width = b.size() + 1;
    const int cellCount = (a.size() + 1) * width;
    std::vector<int> cells(static_cast<std::size_t>(cellCount));
    const auto cell = [&](int row, int column) -> int & {
        const int index = row * width + column;
        return cells[static_cast<std::size_t>(index)];
    };
    for (int row = 0; row <= a.size(); ++row) {
        for (int column = 0; column <= b.size(); ++column) {
            if (row == 0 || column == 0) {
                cell(row, column) = row + column;
                continue;
            }
            const int replaced = a.at(row - 1) == b.at(column - 1) ? 0 : 1;
            int least = std::min(
                {cell(row - 1, column) + 1, cell(row, column - 1) + 1, cell(row - 1, column - 1) + replaced});
            if (row > 1 && column > 1 && a.at(row - 1) == b.at(column - 2) &&
                a.at(row - 2) == b.at(column - 1)) {
                least = std::min(least, cell(row - 2, column - 2) + 1);
            }
            cell(row, column) = least;
        }
    }
    return cell(a.size(), b.size());
}

/// The maximum distance between a mistyped name and the intended one.
int tolerance(int size)
{
    return size < 4 ? 0 : size < 8 ? 1 : 2;
}

} // namespace

QString inBrief(const QString &text)
{
    constexpr int widest = 40;
    return elided(printable(text), widest);
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + inBrief(text) + QLatin1Char('"');
}

QString inWords(double number)
{
    return numberText(number);
}

QString lengthInWords(const QString &text)
{
    const int characters = text.toUcs4().size();
    const QString words = counted(characters, QStringLiteral("character"), QStringLiteral("characters"));
    return characters == text.size() ? words
                                     : QStringLiteral("%1, which count as %2").arg(words).arg(text.size());
}

QString nameOf(const ColumnModel &column)
{
    const QString caption = column.caption.text.trimmed();
    if (!caption.isEmpty()) {
        return QStringLiteral("column %1").arg(quoted(caption));
    }
    return column.isUnbound() ? QStringLiteral("the column")
                              : QStringLiteral("column %1").arg(quoted(column.path));
}

QString nearestOf(const QString &name, const QStringList &candidates)
{
    const QString wanted = name.trimmed();
    if (wanted.size() > longestName) {
        return QString();
    }
    QString nearest;
    int least = std::numeric_limits<int>::max();
    for (const auto &candidate : candidates) {
        if (std::abs(wanted.size() - candidate.size()) > tolerance(candidate.size())) {
            continue;
        }
        const bool differsInCase = wanted.compare(candidate, Qt::CaseInsensitive) == 0;
        const int distance = differsInCase ? 0 : distanceBetween(wanted, candidate);
        if (distance <= tolerance(candidate.size()) && distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

QString NearestNames::of(const QString &name)
{
    constexpr qint64 enoughComparisons = 1'000'000;
    const auto found = m_nearest.constFind(name);
    if (found != m_nearest.cend()) {
        return *found;
    }
    m_comparisons += m_candidates.size();
    return m_comparisons > enoughComparisons ? QString()
                                             : *m_nearest.insert(name, nearestOf(name, m_candidates));
}

QString suggestion(const QString &nearest)
{
    return nearest.isEmpty() ? QString() : QStringLiteral("; did you mean \"%1\"?").arg(printable(nearest));
}

} // namespace Tobrix::Tools
