#pragma once

#include "loading/AbstractTemplateXmlReader.h"

#include <QDomDocument>
#include <QMap>
#include <QString>

#include <utility>

namespace Tobrix::Templates {
class CTemplateColumn;
struct CColumnData;
} // namespace Tobrix::Templates

namespace Tobrix::Fuzzing {

/// Reads templates of the current format by the simplest code: every look-up is a separate search of the
/// document by name. Too slow for hosts, but easy to verify; the library's reader must give the same result.
///
/// A reader may read several files one after the other, on one thread.
class PlainTemplateReader : public Templates::AbstractTemplateXmlReader
{
public:
    PlainTemplateReader();
    ~PlainTemplateReader() override;

    /// Reads one file, with the same result as the library's reader of the current format.
    bool readFile(const QString &fileName, Templates::CTemplateRawData &rawData) override;

private:
    bool isWithinLimits() const;
    void readDocument();

    void readTemplateData();
    void readClassificationColorPreset();
    void readCatalogs();

    void readValueLists();
    void readValueListItems(const QDomElement &valueList);

    void readProgramView();
    void readColumns(const QDomElement &view, QList<Templates::CTemplateColumn *> &columns);
    Templates::CColumnData readColumn(const QDomElement &view, const QDomElement &column);
    void readDefaultValues();

    void readLegendLists();
    void readLegendListItem(const QDomElement &scope, const QString &scopeName);

    QDomDocument m_document;
    Templates::CTemplateRawData *m_rawData = nullptr;
    QMap<QString, int> m_controlTypes;
    QMap<QString, QString> m_unitSystems;
    QMap<QString, QString> m_dataTypes;
    QMap<QString, int> m_valueListTypes;
    QMap<std::pair<QString, QString>, QString> m_defaultValues;
};

} // namespace Tobrix::Fuzzing
