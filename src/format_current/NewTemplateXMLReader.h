#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <QDomDocument>
#include <QMap>
#include <QString>

#include <utility>

class QDomElement;

namespace Tobrix::Templates {

class CTemplateColumn;
struct CColumnData;

/// Reads templates of the current format: a whole document, in which elements are found by their names at any
/// depth and of several candidates the first in the document counts.
///
/// A reader may read several files one after the other, on one thread.
class TOBRIX_TEMPLATES_EXPORT NewTemplateXMLReader : public AbstractTemplateXmlReader
{
public:
    /// A reader with no file yet.
    NewTemplateXMLReader();
    /// Releases the document read last.
    ~NewTemplateXMLReader() override;

    /// Reads one file. Of a file that is not well-formed, what stands before the fault is read.
    /// @param fileName path of the file
    /// @param rawData owns what is put into it; not emptied before
    /// @return false only when the file cannot be opened; the record is untouched then
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    QDomElement uniqueTemplateElementByTagName(const QString &tagName) const;
    QDomElement uniqueChildFromElementByTagName(const QDomElement &element, const QString &tagName) const;

    void readTemplateData();
    void readClassificationColorPreset();
    void readCatalogs();

    void readValueLists();
    void readValueListItems(const QDomElement &valueList);

    void readProgramView();
    void readColumns(const QDomElement &view, QList<CTemplateColumn *> &columns);
    CColumnData readColumn(const QDomElement &view, const QDomElement &column);
    void readBinding(const QDomElement &view, const QDomElement &column, CColumnData &data) const;
    void readRestrictions(const QDomElement &column, CColumnData &data) const;
    void readPresentation(const QDomElement &column, CColumnData &data) const;
    int countGroupLevel(const QDomElement &element) const;
    void readDefaultValues();

    void readLegendLists();
    void readLegendListItem(const QDomElement &scope, QString scopeName);

    QDomDocument m_document;
    CTemplateRawData *m_rawData = nullptr;
    QMap<QString, int> m_controlTypes;
    QMap<QString, QString> m_unitSystems;
    QMap<QString, QString> m_dataTypes;
    QMap<QString, int> m_valueListTypes;
    QMap<std::pair<QString, QString>, QString> m_defaultValues;
};

} // namespace Tobrix::Templates
