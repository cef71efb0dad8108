#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <QDomDocument>
#include <QMap>
#include <QString>

#include <deque>
#include <utility>

namespace Tobrix::Templates {

class CTemplateColumn;
class DocumentIndex;
class IndexedElement;
class TextPool;
struct ColumnRecord;
struct DocumentRecords;
struct ItemRecord;

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

    /// Reads one file. Of a file that is not well-formed, what stands before the fault is read; of one that
    /// asks for more than any template does (by its depth, its entities, its sheer number of columns),
    /// nothing.
    /// @param fileName path of the file
    /// @param rawData owns what is put into it; not emptied before
    /// @return false only when the file cannot be opened; the record is untouched then
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    TOBRIX_TEMPLATES_NO_EXPORT void readTemplateData(const DocumentIndex &document);
    TOBRIX_TEMPLATES_NO_EXPORT void readClassificationColorPreset(const DocumentIndex &document);
    TOBRIX_TEMPLATES_NO_EXPORT void readCatalogs(const DocumentIndex &document);

    TOBRIX_TEMPLATES_NO_EXPORT int readRecord(const IndexedElement &element, DocumentRecords &records) const;
    TOBRIX_TEMPLATES_NO_EXPORT ColumnRecord readColumn(const IndexedElement &column) const;

    TOBRIX_TEMPLATES_NO_EXPORT void readValueLists(const DocumentIndex &document,
                                                   const DocumentRecords &records);
    TOBRIX_TEMPLATES_NO_EXPORT void readValueListItems(const IndexedElement &valueList,
                                                       const std::deque<ItemRecord> &records);

    TOBRIX_TEMPLATES_NO_EXPORT void readProgramView(const DocumentIndex &document, DocumentRecords &records);
    TOBRIX_TEMPLATES_NO_EXPORT void readColumns(const IndexedElement &view, std::deque<ColumnRecord> &records,
                                                const TextPool &pathsWithDefault,
                                                QList<CTemplateColumn *> &columns);
    // Gives the property paths that have a default in some view.
    TOBRIX_TEMPLATES_NO_EXPORT TextPool readDefaultValues(const DocumentIndex &document);

    TOBRIX_TEMPLATES_NO_EXPORT void readLegendLists(const DocumentIndex &document);
    TOBRIX_TEMPLATES_NO_EXPORT void readLegendListItem(const IndexedElement &scope, const QString &scopeName);

    QDomDocument m_document;
    CTemplateRawData *m_rawData = nullptr;
    QMap<QString, int> m_controlTypes;
    QMap<QString, QString> m_unitSystems;
    QMap<QString, QString> m_dataTypes;
    QMap<QString, int> m_valueListTypes;
    QMap<std::pair<QString, QString>, QString> m_defaultValues;
};

} // namespace Tobrix::Templates
