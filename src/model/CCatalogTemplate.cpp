#include "model/CCatalogTemplate.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"

#include "host/CLogger.h"

#include <QMap>

#include <algorithm>
#include <cmath>

namespace Tobrix::Templates {

namespace {

void sortByLowerBound(QList<CTemplateLegendDataItem> &legend)
{
    // Not-a-number sorts after every number: otherwise this would be no strict weak ordering.
    const auto isBefore = [](const CTemplateLegendDataItem &a, const CTemplateLegendDataItem &b) {
        return a.numberFrom < b.numberFrom || (!std::isnan(a.numberFrom) && std::isnan(b.numberFrom));
    };
    std::sort(legend.begin(), legend.end(), isBefore);
}

} // namespace

class CCatalogTemplatePrivate
{
public:
    CCatalogTemplatePrivate() = default;
    ~CCatalogTemplatePrivate();

    void clearProgramViews();
    void clearLists();

    QString uniqueId;
    QString catalogRef;
    QString catalogProfileRef;
    QString key;
    QString type;
    QString description;
    QString version;
    QString unit;
    QString listNamePrefix;
    QString defaultSecClassName;
    QString defaultSecColorField;
    // A map rather than a hash: a file cannot choose names that collide, and freeing many small nodes is
    // cheaper than freeing a hash's large table, which makes the allocator consolidate the heap.
    QMap<QString, QList<CListItem *>> itemLists;
    QList<CProgramView *> programViews;
    QList<CTemplateLegendDataItem> legendA;
    QList<CTemplateLegendDataItem> legendB;
    int sortOrder = -1;
    bool system = false;
    bool editable = false;
    bool updatable = false;

private:
    Q_DISABLE_COPY(CCatalogTemplatePrivate)
};

CCatalogTemplatePrivate::~CCatalogTemplatePrivate()
{
    clearProgramViews();
    clearLists();
}

void CCatalogTemplatePrivate::clearProgramViews()
{
    qDeleteAll(programViews);
    programViews.clear();
}

void CCatalogTemplatePrivate::clearLists()
{
    for (const auto &items : qAsConst(itemLists)) {
        qDeleteAll(items);
    }
    itemLists.clear();
}

CCatalogTemplate::CCatalogTemplate() : d_ptr(new CCatalogTemplatePrivate)
{
}

CCatalogTemplate::~CCatalogTemplate() = default;

QString CCatalogTemplate::uniqueId() const
{
    Q_D(const CCatalogTemplate);
    return d->uniqueId;
}

void CCatalogTemplate::setUniqueId(const QString &uniqueId)
{
    Q_D(CCatalogTemplate);
    d->uniqueId = uniqueId;
}

QString CCatalogTemplate::catalogRef() const
{
    Q_D(const CCatalogTemplate);
    return d->catalogRef;
}

void CCatalogTemplate::setCatalogRef(const QString &catalogRef)
{
    Q_D(CCatalogTemplate);
    d->catalogRef = catalogRef;
}

QString CCatalogTemplate::catalogProfileRef() const
{
    Q_D(const CCatalogTemplate);
    return d->catalogProfileRef;
}

void CCatalogTemplate::setCatalogProfileRef(const QString &catalogProfileRef)
{
    Q_D(CCatalogTemplate);
    d->catalogProfileRef = catalogProfileRef;
}

QString CCatalogTemplate::key() const
{
    Q_D(const CCatalogTemplate);
    return d->key;
}

void CCatalogTemplate::setKey(const QString &key)
{
    Q_D(CCatalogTemplate);
    d->key = key;
}

QString CCatalogTemplate::type() const
{
    Q_D(const CCatalogTemplate);
    return d->type;
}

void CCatalogTemplate::setType(const QString &type)
{
    Q_D(CCatalogTemplate);
    d->type = type;
}

QString CCatalogTemplate::description() const
{
    Q_D(const CCatalogTemplate);
    return d->description;
}

void CCatalogTemplate::setDescription(const QString &description)
{
    Q_D(CCatalogTemplate);
    d->description = description;
}

QString CCatalogTemplate::version() const
{
    Q_D(const CCatalogTemplate);
    return d->version;
}

void CCatalogTemplate::setVersion(const QString &version)
{
    Q_D(CCatalogTemplate);
    d->version = version;
}

QString CCatalogTemplate::unit() const
{
    Q_D(const CCatalogTemplate);
    return d->unit;
}

void CCatalogTemplate::setUnit(const QString &unit)
{
    Q_D(CCatalogTemplate);
    d->unit = unit;
}

QString CCatalogTemplate::listNamePrefix() const
{
    Q_D(const CCatalogTemplate);
    return d->listNamePrefix;
}

void CCatalogTemplate::setListNamePrefix(const QString &listNamePrefix)
{
    Q_D(CCatalogTemplate);
    d->listNamePrefix = listNamePrefix;
}

QString CCatalogTemplate::defaultSecClassName() const
{
    Q_D(const CCatalogTemplate);
    return d->defaultSecClassName;
}

void CCatalogTemplate::setDefaultSecClassName(const QString &defaultSecClassName)
{
    Q_D(CCatalogTemplate);
    d->defaultSecClassName = defaultSecClassName;
}

QString CCatalogTemplate::defaultSecColorField() const
{
    Q_D(const CCatalogTemplate);
    return d->defaultSecColorField;
}

void CCatalogTemplate::setDefaultSecColorField(const QString &defaultSecColorField)
{
    Q_D(CCatalogTemplate);
    d->defaultSecColorField = defaultSecColorField;
}

int CCatalogTemplate::sortOrder() const
{
    Q_D(const CCatalogTemplate);
    return d->sortOrder;
}

void CCatalogTemplate::setSortOrder(int sortOrder)
{
    Q_D(CCatalogTemplate);
    d->sortOrder = sortOrder;
}

bool CCatalogTemplate::isSystem() const
{
    Q_D(const CCatalogTemplate);
    return d->system;
}

void CCatalogTemplate::setSystem(bool system)
{
    Q_D(CCatalogTemplate);
    d->system = system;
}

bool CCatalogTemplate::isEditable() const
{
    Q_D(const CCatalogTemplate);
    return d->editable;
}

void CCatalogTemplate::setEditable(bool editable)
{
    Q_D(CCatalogTemplate);
    d->editable = editable;
}

bool CCatalogTemplate::isUpdatable() const
{
    Q_D(const CCatalogTemplate);
    return d->updatable;
}

void CCatalogTemplate::setUpdatable(bool updatable)
{
    Q_D(CCatalogTemplate);
    d->updatable = updatable;
}

void CCatalogTemplate::setProgramViews(const QList<CProgramView *> &views)
{
    Q_D(CCatalogTemplate);
    if (!d->programViews.isEmpty()) {
        // Logged under the category of columns, where hosts look for messages about views.
        Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(3), QStringLiteral("TemplateColumn"),
                                     QStringLiteral("Program views reloaded."));
    }
    d->clearProgramViews();
    d->programViews = views;
}

int CCatalogTemplate::programViewCount() const
{
    Q_D(const CCatalogTemplate);
    return d->programViews.count();
}

CProgramView *CCatalogTemplate::programView(int index) const
{
    Q_D(const CCatalogTemplate);
    return d->programViews.value(index, nullptr);
}

CProgramView *CCatalogTemplate::programViewByKey(const QString &key) const
{
    Q_D(const CCatalogTemplate);
    const auto hasKey = [&key](const CProgramView *view) { return view && view->key() == key; };
    const auto found = std::find_if(d->programViews.cbegin(), d->programViews.cend(), hasKey);
    return found == d->programViews.cend() ? nullptr : *found;
}

void CCatalogTemplate::addItemList(const QString &name, const QList<CListItem *> &items)
{
    Q_D(CCatalogTemplate);
    // The items of a replaced list are not deleted: a host may still use the list that it got before.
    d->itemLists.insert(name, items);
}

QList<CListItem *> CCatalogTemplate::itemList(const QString &name) const
{
    Q_D(const CCatalogTemplate);
    return d->itemLists.value(name);
}

QStringList CCatalogTemplate::itemListNames() const
{
    Q_D(const CCatalogTemplate);
    QStringList names = d->itemLists.keys();
    names.sort();
    return names;
}

void CCatalogTemplate::setLegendOfClassification(const QList<CTemplateLegendDataItem> &listA,
                                                 const QList<CTemplateLegendDataItem> &listB)
{
    Q_D(CCatalogTemplate);
    d->legendA = listA;
    sortByLowerBound(d->legendA);
    d->legendB = listB;
    sortByLowerBound(d->legendB);
}

QList<CTemplateLegendDataItem> CCatalogTemplate::getLegendOfClassification(bool lateral)
{
    Q_D(CCatalogTemplate);
    return lateral ? d->legendB : d->legendA;
}

} // namespace Tobrix::Templates
