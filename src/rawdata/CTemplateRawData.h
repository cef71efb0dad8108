#pragma once

#include "TobrixTemplatesExport.h"
#include "host/CCatalogDescriptor.h"
#include "model/CTemplateLegendDataItem.h"
#include "rawdata/CTemplateBaseData.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>

namespace Tobrix::Templates {

class CListItem;
class CProgramView;
class CTemplateColumn;

/// A template as a format reader found it, the same for both formats. The record owns the views, list items
/// and columns in it, until the builder moves them out. Null entries are allowed.
///
/// The record may grow at its end in a minor version: code that makes, copies or embeds one is compiled with
/// the headers of the library that it runs with. Derive nothing from it.
struct TOBRIX_TEMPLATES_EXPORT CTemplateRawData : public CTemplateBaseData
{
    /// An empty record.
    CTemplateRawData();
    /// Deletes everything that is still in the record.
    ~CTemplateRawData();

    /// Empties the record for the next file: the header as CTemplateBaseData::clear() does, the legends, and
    /// all list items, columns and views, which are deleted. The catalogues stay.
    void clear();

    QList<Tobrix::CATManagement::CCatalogDescriptor> catalogs; ///< Catalogues assigned to the template.
    QList<CTemplateLegendDataItem> legendA;                    ///< Legend of sections, as read.
    QList<CTemplateLegendDataItem> legendB;                    ///< Legend of laterals, as read.
    QHash<QString, CProgramView *> programViews;               ///< Views by their unique id.
    /// List items by the name of their list, several a name, the newest first.
    QMap<QString, CListItem *> listItems;
    /// Columns by the unique id of their view, several an id, the newest first. Empty in the current format,
    /// where views hold their columns from the start.
    QMap<QString, CTemplateColumn *> columns;

private:
    Q_DISABLE_COPY(CTemplateRawData)
};

} // namespace Tobrix::Templates
