#pragma once

#include "model/CTextColumn.h"

#include <QStringList>

/// A text column that records its name when it is deleted.
class NamedColumn : public Tobrix::Templates::CTextColumn
{
public:
    NamedColumn(QStringList &deleted, const QString &name) : m_deleted(deleted), m_name(name) {}
    ~NamedColumn() override { m_deleted.append(m_name); }

private:
    Q_DISABLE_COPY(NamedColumn)

    QStringList &m_deleted;
    QString m_name;
};
