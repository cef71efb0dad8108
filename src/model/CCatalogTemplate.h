#pragma once

#include "TobrixTemplatesExport.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace Tobrix::Templates {

class CCatalogTemplatePrivate;
class CListItem;
class CProgramView;
class CTemplateLegendDataItem;

/// A loaded catalogue template: its header, program views, value lists and the two classification legends.
///
/// Whoever receives a template owns it; the template owns its views (with their columns) and all list items.
/// It is not copied. Pointers that it hands out are valid until it is deleted or the part is replaced.
///
/// A text that was never set is empty; getters return copies and setters copy.
class TOBRIX_TEMPLATES_EXPORT CCatalogTemplate
{
public:
    /// An empty template.
    CCatalogTemplate();
    /// Deletes the template, its views, their columns and all list items.
    ~CCatalogTemplate();

    /// The template's identity, by which the host's registry knows it.
    QString uniqueId() const;
    /// Sets the template's identity.
    void setUniqueId(const QString &uniqueId);

    /// The catalogue that the template refers to; empty in the current format.
    QString catalogRef() const;
    /// Sets the catalogue that the template refers to.
    void setCatalogRef(const QString &catalogRef);

    /// The template that this one is based on; empty in the current format.
    QString catalogProfileRef() const;
    /// Sets the template that this one is based on.
    void setCatalogProfileRef(const QString &catalogProfileRef);

    /// The template's name.
    QString key() const;
    /// Sets the template's name.
    void setKey(const QString &key);

    /// The template's type; empty when neither the file nor the host's registry has one.
    QString type() const;
    /// Sets the template's type.
    void setType(const QString &type);

    /// What the template is for, in words.
    QString description() const;
    /// Sets what the template is for.
    void setDescription(const QString &description);

    /// The template's version.
    QString version() const;
    /// Sets the template's version.
    void setVersion(const QString &version);

    /// The system of units, as its unit of length: "m" or "ft", or whatever a legacy file says.
    QString unit() const;
    /// Sets the system of units.
    void setUnit(const QString &unit);

    /// The prefix of the names of the template's value lists. Loading leaves it empty.
    QString listNamePrefix() const;
    /// Sets the prefix of the names of value lists.
    void setListNamePrefix(const QString &listNamePrefix);

    /// The classification that sections show at first. Loading leaves it empty.
    QString defaultSecClassName() const;
    /// Sets the classification that sections show at first.
    void setDefaultSecClassName(const QString &defaultSecClassName);

    /// The field by which sections are coloured at first. Loading leaves it empty.
    QString defaultSecColorField() const;
    /// Sets the field by which sections are coloured at first.
    void setDefaultSecColorField(const QString &defaultSecColorField);

    /// The template's position among templates; -1 when never set. Loading leaves it at -1.
    int sortOrder() const;
    /// Sets the template's position among templates.
    void setSortOrder(int sortOrder);

    /// Whether the template came with the system; false when never set and in the current format.
    bool isSystem() const;
    /// Sets whether the template came with the system.
    void setSystem(bool system);

    /// Whether users may edit the template; false when never set and in the current format.
    bool isEditable() const;
    /// Sets whether users may edit the template.
    void setEditable(bool editable);

    /// Whether the template may be updated; false when never set and in the current format.
    bool isUpdatable() const;
    /// Sets whether the template may be updated.
    void setUpdatable(bool updatable);

    /// Takes over program views. Views that the template already holds are deleted, which is logged.
    /// @param views the new views; the template owns them from now on. Null entries do no harm.
    void setProgramViews(const QList<CProgramView *> &views);

    /// The number of program views.
    int programViewCount() const;

    /// The program view at a position, owned by the template. A loaded template's views are in no defined
    /// order.
    /// @param index the position, from 0
    /// @return null when there is no such position
    CProgramView *programView(int index) const;

    /// The first program view of a key, owned by the template.
    /// @param key the view's key (not its unique id), compared exactly
    /// @return null when no view has that key
    CProgramView *programViewByKey(const QString &key) const;

    /// Files a value list. A list that already has the name is replaced, and its items belong to nobody then.
    /// @param name the list's name
    /// @param items the list's items; the template owns them from now on
    void addItemList(const QString &name, const QList<CListItem *> &items);

    /// The items of a value list, owned by the template.
    /// @param name the list's name, compared exactly
    /// @return empty when there is no list of that name
    QList<CListItem *> itemList(const QString &name) const;

    /// The names of all value lists, sorted; empty when there are none.
    QStringList itemListNames() const;

    /// Sets both classification legends. Each is sorted by lower bound, ascending; bands with equal bounds
    /// end in no defined order, and a bound that is not a number goes behind all numbers.
    /// @param listA the legend of sections
    /// @param listB the legend of laterals
    void setLegendOfClassification(const QList<CTemplateLegendDataItem> &listA,
                                   const QList<CTemplateLegendDataItem> &listB);

    /// One of the classification legends, sorted by lower bound.
    /// @param lateral true for the legend of laterals, false for that of sections
    QList<CTemplateLegendDataItem> getLegendOfClassification(bool lateral);

private:
    Q_DISABLE_COPY(CCatalogTemplate)
    Q_DECLARE_PRIVATE(CCatalogTemplate)
    const std::unique_ptr<CCatalogTemplatePrivate> d_ptr;
};

} // namespace Tobrix::Templates
