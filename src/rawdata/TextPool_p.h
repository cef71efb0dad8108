#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

namespace Tobrix::Templates {

/// Texts that a template repeats from column to column (tables, units, lists, formats), each kept once. A
/// pool serves one reading of one file.
class TextPool
{
public:
    /// The text, of which all texts that are equal share one copy without spare room.
    QString shared(QStringView text)
    {
        if (text.isEmpty()) {
            return text.isNull() ? QString() : QString(QLatin1String(""));
        }
        const auto found = m_texts.constFind(text);
        if (found != m_texts.cend()) {
            return *found;
        }
        const QString own(text.data(), static_cast<int>(text.size()));
        m_texts.insert(QStringView(own), own);
        return own;
    }

    void clear() { m_texts.clear(); }

private:
    // The keys are views of the values.
    QHash<QStringView, QString> m_texts;
};

} // namespace Tobrix::Templates
