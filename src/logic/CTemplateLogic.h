#pragma once

#include "TobrixTemplatesExport.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <memory>

namespace Tobrix::Templates {

class CCatalogTemplate;
class CListItem;
class CTemplateLogicPrivate;

/// Keeps a template, shared with other owners, beside the host's current record, and answers for its value
/// lists.
class TOBRIX_TEMPLATES_EXPORT CTemplateLogic : public QObject
{
    Q_OBJECT

public:
    /// An object that holds no template and no record.
    /// @param parent the owner; null for none
    explicit CTemplateLogic(QObject *parent);
    /// Gives the template up, which is deleted when nobody else holds it. The record is left alone.
    ~CTemplateLogic() override;

    /// The template held. It lives as long as anybody holds it.
    /// @return null when there is none
    QSharedPointer<CCatalogTemplate> catalogTemplate() const;
    /// Holds another template, or none, and gives up the one held before.
    /// @param catalogTemplate the template; null for none
    void setCatalogTemplate(const QSharedPointer<CCatalogTemplate> &catalogTemplate);

    /// The values of the host's current record by field.
    /// @return the record, owned by the host; null when never set
    QHash<QString, QVariant> *data() const;
    /// Sets the host's current record.
    /// @param data the record, which stays the host's and must outlive its use here; null for none
    void setData(QHash<QString, QVariant> *data);

    /// The items of a value list of the template held; they are the template's.
    /// @param name the list's name, compared exactly
    /// @return empty when no template is held or it has no such list
    QList<CListItem *> queryColumnList(const QString &name) const;

private:
    Q_DISABLE_COPY(CTemplateLogic)
    Q_DECLARE_PRIVATE_D(m_d, CTemplateLogic)
    const std::unique_ptr<CTemplateLogicPrivate> m_d;
};

} // namespace Tobrix::Templates
