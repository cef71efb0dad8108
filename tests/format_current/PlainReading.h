#pragma once

#include "loading/CTemplateBuilder.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"

#include <QDomDocument>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <memory>
#include <utility>

/// Reads a document by nothing but look-ups by name in the document itself: slow, and so plain that it is
/// easily seen to be right. A yardstick for the reader, which walks over a document only once.
class PlainReading
{
public:
    PlainReading(const QByteArray &document, Tobrix::Templates::CTemplateRawData &rawData)
        : m_rawData(rawData)
    {
        m_document.setContent(document, false);
        readHeader();
        readLists();
        readDefaults();
        for (const auto &view : all(m_document, "View")) {
            readView(view);
        }
        readLegends();
    }

private:
    Q_DISABLE_COPY(PlainReading)

    template <typename Node>
    static QList<QDomElement> all(const Node &below, const char *name)
    {
        QList<QDomElement> elements;
        const QDomNodeList found = below.elementsByTagName(QLatin1String(name));
        for (int i = 0; i < found.count(); ++i) {
            elements.append(found.at(i).toElement());
        }
        return elements;
    }

    template <typename Node>
    static QDomElement first(const Node &below, const char *name)
    {
        return below.elementsByTagName(QLatin1String(name)).item(0).toElement();
    }

    static QString attribute(const QDomElement &element, const char *name)
    {
        return element.attribute(QLatin1String(name), QString());
    }

    static bool has(const QDomElement &below, const char *name) { return !first(below, name).isNull(); }

    static QString textItem(const QDomElement &below, const char *name)
    {
        return first(first(below, name), "TextItem").text();
    }

    void readHeader()
    {
        const QDomElement identifier = first(m_document, "TemplateIdentifier");
        const QHash<QString, QString> units{{QStringLiteral("Metric"), QStringLiteral("m")},
                                            {QStringLiteral("Imperial"), QStringLiteral("ft")}};
        m_rawData.uniqueId = attribute(identifier, "Id");
        m_rawData.key = first(m_document, "Name").text();
        m_rawData.listNamePrefix = m_rawData.key;
        m_rawData.description = attribute(identifier, "Description");
        m_rawData.version = first(m_document, "Version").text();
        m_rawData.unit = units.value(attribute(identifier, "SystemOfUnits"));
        readPreset();
        for (const auto &element : all(first(m_document, "AssignedCatalogs"), "Catalog")) {
            Tobrix::CATManagement::CCatalogDescriptor catalog;
            catalog.setId(attribute(element, "Id"));
            catalog.setCountryCode(attribute(element, "Country"));
            catalog.setLanguageCode(attribute(element, "Language"));
            m_rawData.catalogs.append(catalog);
        }
    }

    void readPreset()
    {
        QDomElement chosen;
        for (const auto &preset :
             all(first(m_document, "ClassificationColorPresets"), "ClassificationColorPreset")) {
            if (attribute(preset, "Scope") != QStringLiteral("Section")) {
                continue;
            }
            if (preset.hasAttribute(QStringLiteral("ClassificationColorName"))) {
                m_rawData.defaultSecClassName = attribute(preset, "ClassificationColorName");
            }
            if (attribute(preset, "Chapter") == QStringLiteral("Color")) {
                chosen = preset;
            }
            if (!m_rawData.defaultSecClassName.isEmpty() && !chosen.isNull()) {
                break;
            }
        }
        QStringList names;
        for (const auto &property : all(chosen, "PresetProperty")) {
            names.append(attribute(property, "PropertyName"));
        }
        m_rawData.defaultSecColorField = names.join(QLatin1Char(';'));
    }

    void readLists()
    {
        for (const auto &list : all(m_document, "ValueList")) {
            m_listClasses.insert(attribute(list, "Name"), attribute(list, "CompatibleListClassType").toInt());
            for (const auto &element : all(list, "ValueListItem")) {
                auto *item = new Tobrix::Templates::CListItem;
                m_rawData.listItems.insertMulti(attribute(list, "Name"), item);
                item->setItem(attribute(element, "Key"));
                item->setInternalValue(attribute(element, "InternalKey"));
                item->setSortOrder(attribute(element, "OrdinalIndex").toInt());
                item->setCaption(textItem(element, "Captions"));
            }
        }
    }

    void readDefaults()
    {
        for (const auto &scope : all(first(m_document, "DefaultValues"), "DefaultValueScope")) {
            for (const auto &item : all(scope, "DefaultValueItem")) {
                const QDomElement bound = first(item, "BoundProperty");
                const QDomElement reference = first(bound, "RefersTo");
                const QString display = attribute(reference, "DisplayPropertyName");
                QString path = attribute(bound, "PropertyName");
                if (!reference.isNull() && !display.endsWith(QStringLiteral("_Key"))) {
                    path += QStringLiteral(".") + display;
                }
                m_defaults.insert({path, attribute(item, "View")}, attribute(item, "Value"));
            }
        }
    }

    void readView(const QDomElement &element)
    {
        using Tobrix::Templates::CTemplateColumn;
        auto view = std::make_unique<Tobrix::Templates::CProgramView>();
        view->setUniqueId(attribute(element, "Id"));
        view->setKey(attribute(element, "Name"));
        view->setDescription(attribute(element, "Description"));
        QList<CTemplateColumn *> columns;
        for (const auto &column : all(element, "Column")) {
            readColumn(element, column, columns);
        }
        std::stable_sort(columns.begin(), columns.end(),
                         [](const CTemplateColumn *a, const CTemplateColumn *b) {
                             return a && (!b || a->sortOrder() < b->sortOrder());
                         });
        view->setColumns(columns);
        delete m_rawData.programViews.take(view->uniqueId());
        m_rawData.programViews.insert(view->uniqueId(), view.get());
        view.release();
    }

    void readColumn(const QDomElement &view, const QDomElement &column,
                    QList<Tobrix::Templates::CTemplateColumn *> &columns)
    {
        using namespace Tobrix::Templates;
        CColumnData data;
        data.dataType = dataTypes().value(attribute(column, "DataType"));
        data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
        data.controlType = std::max(0, controlTypes().indexOf(attribute(column, "ControlType")));
        data.width = attribute(column, "Width").toInt();
        data.sortOrder = attribute(column, "Ordinal").toInt();
        data.isValueTransfer = attribute(column, "ValueTransfer") == QStringLiteral("true");
        data.unit = attribute(column, "Unit");
        data.caption = textItem(column, "Caption");
        data.toolTip = textItem(column, "ToolTip");
        data.dataSource = first(column, "ValueListName").text();
        data.typeFlags = static_cast<CTemplateColumn::TypeFlags>(m_listClasses.value(data.dataSource));
        data.displayFormat = attribute(first(first(column, "DisplayFormat"), "ValueFormatItem"), "Format");
        readRestrictions(column, data);
        readBinding(view, column, data);
        data.defaultValue = m_defaults.value({data.boundColumn, attribute(view, "Name")});
        const QStringList excluded{
            QStringLiteral("OBJ_Instrumented_NODE"), QStringLiteral("OBJ_Instrumented_SECTION"),
            QStringLiteral("OBJ_Maintenance_NODE"), QStringLiteral("OBJ_Maintenance_SECTION")};
        if (!excluded.contains(data.boundColumn + QStringLiteral("_") + data.tableName)) {
            columns.append(CTemplateBuilder::buildColumn(data));
        }
    }

    static void readRestrictions(const QDomElement &column, Tobrix::Templates::CColumnData &data)
    {
        data.isMandatory = has(column, "MandatoryRestriction");
        data.isReadOnly = has(column, "ReadOnlyRestriction");
        data.isVirtual = has(column, "VirtualRestriction");
        data.isVisible = has(column, "VisibilityRestriction");
        const QDomElement visibility = first(column, "VisibilityRestriction");
        if (attribute(visibility, "Simple") == QStringLiteral("false")) {
            const QDomElement levels = first(visibility, "GroupLevel");
            int mask = 0;
            for (int level = 1; level <= 9; ++level) {
                if (attribute(levels, qPrintable(QStringLiteral("Level%1").arg(level))) ==
                    QStringLiteral("true")) {
                    mask += 1 << (level - 1);
                }
            }
            data.groupLevel = static_cast<Tobrix::Templates::CTemplateColumn::GroupLevel>(mask);
        }
        data.maximumTextLength =
            static_cast<int>(attribute(first(column, "TextLengthRestriction"), "Max").toDouble());
        const QDomElement range = first(column, "NumericRangeRestriction");
        const auto setIfPresent = [&range](const char *name, auto &value) {
            if (range.hasAttribute(QLatin1String(name))) {
                value = attribute(range, name).toDouble();
            }
        };
        setIfPresent("Step", data.stepInterval);
        setIfPresent("From", data.minimumValue);
        setIfPresent("To", data.maximumValue);
        if (range.hasAttribute(QStringLiteral("Precision"))) {
            data.precision = attribute(range, "Precision").toInt();
        }
    }

    static void readBinding(const QDomElement &view, const QDomElement &column,
                            Tobrix::Templates::CColumnData &data)
    {
        const QDomElement bound = first(column, "BoundProperty");
        const QDomElement reference = first(bound, "RefersTo");
        data.boundColumn = attribute(bound, "PropertyName");
        data.tableName = attribute(bound, "ObjectName");
        const QString display = attribute(reference, "DisplayPropertyName");
        const bool showsKey = display.endsWith(QStringLiteral("_Key"));
        const bool mayShowKey = data.isMandatory && data.boundColumn.endsWith(QStringLiteral("_FK")) &&
                                attribute(view, "Kind") == QStringLiteral("Detail");
        if (!reference.isNull() && (!showsKey || mayShowKey)) {
            data.boundColumn += QStringLiteral(".") + display;
            data.tableName = attribute(reference, "ObjectName");
        }
    }

    void readLegends()
    {
        for (const auto &scope :
             all(first(m_document, "ClassificationColorScopes"), "ClassificationColorScope")) {
            if (attribute(scope, "Name") != QStringLiteral("ClassColorDefault")) {
                continue;
            }
            for (const auto &element : all(scope, "ClassificationColor")) {
                Tobrix::Templates::CTemplateLegendDataItem band;
                band.numberFrom = attribute(element, "From").toDouble();
                band.numberTo = attribute(element, "To").toDouble();
                band.color = attribute(first(element, "Color"), "Html");
                band.textA = textItem(element, "TextA");
                band.textB = textItem(element, "TextB");
                if (attribute(scope, "Scope") == QStringLiteral("Lateral")) {
                    m_rawData.legendB.append(band);
                } else if (attribute(scope, "Scope") == QStringLiteral("Section")) {
                    m_rawData.legendA.append(band);
                }
            }
        }
    }

    static QHash<QString, QString> dataTypes()
    {
        return {{QStringLiteral("Text"), QStringLiteral("TXT")},
                {QStringLiteral("Guid"), QStringLiteral("GUI")},
                {QStringLiteral("Integer"), QStringLiteral("INT")},
                {QStringLiteral("Decimal"), QStringLiteral("DEC")},
                {QStringLiteral("Boolean"), QStringLiteral("BOL")},
                {QStringLiteral("Date"), QStringLiteral("DAT")},
                {QStringLiteral("Time"), QStringLiteral("TIM")}};
    }

    static QStringList controlTypes()
    {
        return {QString(), QStringLiteral("SimpleTextbox"), QStringLiteral("MaskedTextbox"),
                QStringLiteral("ComboList")};
    }

    QDomDocument m_document;
    Tobrix::Templates::CTemplateRawData &m_rawData;
    QHash<QString, int> m_listClasses;
    QHash<std::pair<QString, QString>, QString> m_defaults;
};
