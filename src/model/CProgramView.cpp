#include "model/CProgramView.h"

#include "model/CTemplateColumn.h"

#include <algorithm>

namespace Tobrix::Templates {

class CProgramViewPrivate
{
public:
    CProgramViewPrivate() = default;
    ~CProgramViewPrivate() { qDeleteAll(columns); }

    QString uniqueId;
    QString key;
    QString description;
    QList<CTemplateColumn *> columns;

private:
    Q_DISABLE_COPY(CProgramViewPrivate)
};

CProgramView::CProgramView() : d_ptr(new CProgramViewPrivate)
{
}

CProgramView::~CProgramView() = default;

QString CProgramView::uniqueId() const
{
    Q_D(const CProgramView);
    return d->uniqueId;
}

void CProgramView::setUniqueId(const QString &uniqueId)
{
    Q_D(CProgramView);
    d->uniqueId = uniqueId;
}

QString CProgramView::key() const
{
    Q_D(const CProgramView);
    return d->key;
}

void CProgramView::setKey(const QString &key)
{
    Q_D(CProgramView);
    d->key = key;
}

QString CProgramView::description() const
{
    Q_D(const CProgramView);
    return d->description;
}

void CProgramView::setDescription(const QString &description)
{
    Q_D(CProgramView);
    d->description = description;
}

void CProgramView::setColumns(const QList<CTemplateColumn *> &columns)
{
    Q_D(CProgramView);
    qDeleteAll(d->columns);
    d->columns = columns;
}

int CProgramView::columnCount() const
{
    Q_D(const CProgramView);
    return d->columns.count();
}

CTemplateColumn *CProgramView::column(int index) const
{
    Q_D(const CProgramView);
    return d->columns.value(index, nullptr);
}

CTemplateColumn *CProgramView::column(const QString &name) const
{
    Q_D(const CProgramView);
    const auto isBoundToName = [&name](const CTemplateColumn *column) {
        return column && column->boundColumn() == name;
    };
    const auto found = std::find_if(d->columns.cbegin(), d->columns.cend(), isBoundToName);
    return found == d->columns.cend() ? nullptr : *found;
}

} // namespace Tobrix::Templates
