#pragma once

#include "model/CTextColumn.h"

#include <QString>

/// A text column that counts its deletion.
class CountedColumn : public Tobrix::Templates::CTextColumn
{
public:
    explicit CountedColumn(int &deletions, const QString &boundTo = QString(), int position = 0)
        : m_deletions(deletions)
    {
        setBoundColumn(boundTo);
        setSortOrder(position);
    }
    ~CountedColumn() override { ++m_deletions; }

private:
    Q_DISABLE_COPY(CountedColumn)

    int &m_deletions;
};
