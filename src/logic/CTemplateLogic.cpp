#include "logic/CTemplateLogic.h"

#include "model/CCatalogTemplate.h"

namespace Tobrix::Templates {

class CTemplateLogicPrivate
{
public:
    QSharedPointer<CCatalogTemplate> catalogTemplate;
    QHash<QString, QVariant> *data = nullptr;
};

CTemplateLogic::CTemplateLogic(QObject *parent) : QObject(parent), m_d(new CTemplateLogicPrivate)
{
}

CTemplateLogic::~CTemplateLogic() = default;

QSharedPointer<CCatalogTemplate> CTemplateLogic::catalogTemplate() const
{
    Q_D(const CTemplateLogic);
    return d->catalogTemplate;
}

void CTemplateLogic::setCatalogTemplate(const QSharedPointer<CCatalogTemplate> &catalogTemplate)
{
    Q_D(CTemplateLogic);
    d->catalogTemplate = catalogTemplate;
}

QHash<QString, QVariant> *CTemplateLogic::data() const
{
    Q_D(const CTemplateLogic);
    return d->data;
}

void CTemplateLogic::setData(QHash<QString, QVariant> *data)
{
    Q_D(CTemplateLogic);
    d->data = data;
}

QList<CListItem *> CTemplateLogic::queryColumnList(const QString &name) const
{
    Q_D(const CTemplateLogic);
    return d->catalogTemplate ? d->catalogTemplate->itemList(name) : QList<CListItem *>();
}

} // namespace Tobrix::Templates
