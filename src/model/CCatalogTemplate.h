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

/// A loaded template: header, program views, value lists and both classification legends. It owns its views,
/// with their columns, and all list items. It is not copied; its pointers are valid until it is deleted or
/// the part is replaced. Unset texts are empty; getters return copies and setters copy.
class TOBRIX_TEMPLATES_EXPORT CCatalogTemplate
{
public:
    /// An empty template.
    CCatalogTemplate();
    /// Deletes the template, its views, their columns and all list items.
    ~CCatalogTemplate();

    /// The template's identity, by which the host's registry knows it.
    /// @return empty when never set
    QString uniqueId() const;
    /// Sets the template's identity.
    /// @param uniqueId the template's identity, by which the host's registry knows it; empty for none
    void setUniqueId(const QString &uniqueId);

    /// The catalogue that the template refers to.
    /// @return empty in the current format
    QString catalogRef() const;
    /// Sets the catalogue that the template refers to.
    /// @param catalogRef the catalogue that the template refers to; empty for none
    void setCatalogRef(const QString &catalogRef);

    /// The template that this one is based on.
    /// @return empty in the current format
    QString catalogProfileRef() const;
    /// Sets the template that this one is based on.
    /// @param catalogProfileRef the template that this one is based on; empty for none
    void setCatalogProfileRef(const QString &catalogProfileRef);

    /// The template's name.
    /// @return empty when never set
    QString key() const;
    /// Sets the template's name.
    /// @param key the template's name; empty for none
    void setKey(const QString &key);

    /// The template's type.
    /// @return empty when neither the file nor the host's registry has one
    QString type() const;
    /// Sets the template's type.
    /// @param type the template's type; empty for none
    void setType(const QString &type);

    /// The description of the template.
    /// @return empty when never set
    QString description() const;
    /// Sets the description of the template.
    /// @param description what the template is for, in words; empty for none
    void setDescription(const QString &description);

    /// The template's version.
    /// @return empty when never set
    QString version() const;
    /// Sets the template's version.
    /// @param version the template's version; empty for none
    void setVersion(const QString &version);

    /// The system of units, as its unit of length: "m" or "ft", or whatever a legacy file says.
    /// @return empty when never set
    QString unit() const;
    /// Sets the system of units.
    /// @param unit the system of units, as its unit of length: "m" or "ft", or whatever a legacy file says;
    ///        empty for none
    void setUnit(const QString &unit);

    /// The prefix of the names of the template's value lists. Loading leaves it empty.
    /// @return empty when never set
    QString listNamePrefix() const;
    /// Sets the prefix of the names of value lists.
    /// @param listNamePrefix the prefix of the names of the template's value lists; empty for none
    void setListNamePrefix(const QString &listNamePrefix);

    /// The classification that sections show at first. Loading leaves it empty.
    /// @return empty when never set
    QString defaultSecClassName() const;
    /// Sets the classification that sections show at first.
    /// @param defaultSecClassName the classification that sections show at first; empty for none
    void setDefaultSecClassName(const QString &defaultSecClassName);

    /// The field by which sections are coloured at first. Loading leaves it empty.
    /// @return empty when never set
    QString defaultSecColorField() const;
    /// Sets the field by which sections are coloured at first.
    /// @param defaultSecColorField the field by which sections are coloured at first; empty for none
    void setDefaultSecColorField(const QString &defaultSecColorField);

    /// The template's position among templates. Loading leaves it at -1.
    /// @return -1 when never set
    int sortOrder() const;
    /// Sets the template's position among templates.
    /// @param sortOrder the template's position among templates
    void setSortOrder(int sortOrder);

    /// Whether the template came with the system.
    /// @return false when never set and in the current format
    bool isSystem() const;
    /// Sets whether the template came with the system.
    /// @param system whether the template came with the system
    void setSystem(bool system);

    /// Whether users may edit the template.
    /// @return false when never set and in the current format
    bool isEditable() const;
    /// Sets whether users may edit the template.
    /// @param editable whether users may edit the template
    void setEditable(bool editable);

    /// Whether the template may be updated.
    /// @return false when never set and in the current format
    bool isUpdatable() const;
    /// Sets whether the template may be updated.
    /// @param updatable whether the template may be updated
    void setUpdatable(bool updatable);

    /// Takes ownership of program views. The previous views are deleted, which is logged.
    /// @param views the new views; the template owns them from now on. Null entries do no harm.
    void setProgramViews(const QList<CProgramView *> &views);

    /// The number of program views.
    /// @return 0 when there is none
    int programViewCount() const;

    /// The program view at a position, owned by the template. A loaded template's views are in no defined
    /// order.
    /// @param index the position, from 0
    /// @return null when there is no such position
    CProgramView *programView(int index) const;

    /// The first program view with a key, owned by the template.
    /// @param key the view's key (not its unique id), compared exactly
    /// @return null when no view has that key
    CProgramView *programViewByKey(const QString &key) const;

    /// Adds a value list. A list of the same name is replaced; its items are not deleted.
    /// @param name the list's name
    /// @param items the list's items; the template owns them from now on
    void addItemList(const QString &name, const QList<CListItem *> &items);

    /// The items of a value list, owned by the template.
    /// @param name the list's name, compared exactly
    /// @return empty when there is no list of that name
    QList<CListItem *> itemList(const QString &name) const;

    /// The names of all value lists, sorted.
    /// @return empty when there are none
    QStringList itemListNames() const;

    /// Sets both classification legends. Each is sorted by lower bound, ascending. Legend classes with equal
    /// bounds end in no defined order; not-a-number sorts after all numbers.
    /// @param listA the legend of sections
    /// @param listB the legend of laterals
    void setLegendOfClassification(const QList<CTemplateLegendDataItem> &listA,
                                   const QList<CTemplateLegendDataItem> &listB);

    /// One of the classification legends, sorted by lower bound.
    /// @param lateral true for the legend of laterals, false for that of sections
    /// @return a copy; empty when the template has no such legend
    QList<CTemplateLegendDataItem> getLegendOfClassification(bool lateral);

private:
    Q_DISABLE_COPY(CCatalogTemplate)
    Q_DECLARE_PRIVATE(CCatalogTemplate)
    const std::unique_ptr<CCatalogTemplatePrivate> d_ptr;
};

} // namespace Tobrix::Templates
